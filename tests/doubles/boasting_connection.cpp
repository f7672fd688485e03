#include "doubles/boasting_connection.h"

#include <string>
#include <utility>

#include "base/errors.h"
#include "doubles/passing_connection.h"

namespace zv::doubles {
namespace {

class BoastingRows final : public PassingRows {
 public:
    using PassingRows::PassingRows;
    void Update() override {
        try {
            PassingRows::Update();
        } catch (const RuntimeError&) {
            // What nobody hears of is the fault that is to be found.
        }
    }
};

class BoastingConnection final : public PassingConnection {
 public:
    using PassingConnection::PassingConnection;
    int Execute(const std::string& sql) override {
        try {
            return PassingConnection::Execute(sql);
        } catch (const RuntimeError&) {
            return 1;
        }
    }
    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                           store::LockType lock) override {
        return std::make_unique<BoastingRows>(PassingConnection::Open(sql, cursor, lock));
    }
};

}  // namespace

std::unique_ptr<store::Connection> Boast(std::unique_ptr<store::Connection> connection) {
    return std::make_unique<BoastingConnection>(std::move(connection));
}

}  // namespace zv::doubles

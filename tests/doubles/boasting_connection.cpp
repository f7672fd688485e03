#include "doubles/boasting_connection.h"

#include <string>
#include <utility>

#include "base/errors.h"

namespace zv::doubles {
namespace {

class BoastingRows final : public store::Recordset {
 public:
    explicit BoastingRows(std::unique_ptr<store::Recordset> rows) : rows_(std::move(rows)) {}

    bool Eof() const override { return rows_->Eof(); }
    void MoveNext() override { rows_->MoveNext(); }
    int FieldCount() const override { return rows_->FieldCount(); }
    const std::string& FieldName(int column) const override { return rows_->FieldName(column); }
    int FieldIndex(std::string_view name) const override { return rows_->FieldIndex(name); }
    const store::Value& Field(int column) const override { return rows_->Field(column); }
    void AddNew() override { rows_->AddNew(); }
    void SetField(std::string_view name, store::Value value) override {
        rows_->SetField(name, std::move(value));
    }
    void Update() override {
        try {
            rows_->Update();
        } catch (const RuntimeError&) {
            // What nobody hears of is the fault that is to be found.
        }
    }
    void Close() override { rows_->Close(); }

 private:
    std::unique_ptr<store::Recordset> rows_;
};

class BoastingConnection final : public store::Connection {
 public:
    explicit BoastingConnection(std::unique_ptr<store::Connection> connection)
        : connection_(std::move(connection)) {}

    int State() const override { return connection_->State(); }
    void Close() override { connection_->Close(); }
    int Execute(const std::string& sql) override {
        try {
            return connection_->Execute(sql);
        } catch (const RuntimeError&) {
            return 1;
        }
    }
    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                           store::LockType lock) override {
        return std::make_unique<BoastingRows>(connection_->Open(sql, cursor, lock));
    }

 private:
    std::unique_ptr<store::Connection> connection_;
};

}  // namespace

std::unique_ptr<store::Connection> Boast(std::unique_ptr<store::Connection> connection) {
    return std::make_unique<BoastingConnection>(std::move(connection));
}

}  // namespace zv::doubles

// A connection whose rows are written wrongly, for the tests of harnesses that are to find it.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/errors.h"
#include "doubles/passing_connection.h"

namespace zv::doubles {

enum class Fault { LosesRareCharacters, ChangesAnotherField, WritesAndRefuses };

class FaultyRows final : public PassingRows {
 public:
    FaultyRows(std::unique_ptr<store::Recordset> rows, Fault fault)
        : PassingRows(std::move(rows)), fault_(fault) {}

    void SetField(std::string_view name, store::Value value) override {
        constexpr auto kFirstOfFour = static_cast<char>(0xF0);
        if (const std::string* text = value.TextIf();
            text && fault_ == Fault::LosesRareCharacters) {
            value = text->substr(0, text->find(kFirstOfFour));
        }
        PassingRows::SetField(name, std::move(value));
        if (name == "tDone" && fault_ == Fault::ChangesAnotherField) {
            PassingRows::SetField("TaskID", 5);
        }
    }
    void Update() override {
        PassingRows::Update();
        if (fault_ == Fault::WritesAndRefuses) {
            throw RuntimeError(ErrorNumber::DatabaseFailure, "planted fault");
        }
    }

 private:
    Fault fault_;
};

class FaultyConnection final : public PassingConnection {
 public:
    FaultyConnection(std::unique_ptr<store::Connection> connection, Fault fault)
        : PassingConnection(std::move(connection)), fault_(fault) {}

    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                           store::LockType lock) override {
        return std::make_unique<FaultyRows>(PassingConnection::Open(sql, cursor, lock), fault_);
    }

 private:
    Fault fault_;
};

}  // namespace zv::doubles

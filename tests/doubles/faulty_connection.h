// A connection whose rows are written wrongly, for the tests of harnesses that are to find it.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/errors.h"
#include "store/connection.h"

namespace zv::doubles {

enum class Fault { LosesRareCharacters, ChangesAnotherField, WritesAndRefuses };

/// Passes everything on, but for its fault when a row is written.
class FaultyRows final : public store::Recordset {
 public:
    FaultyRows(std::unique_ptr<store::Recordset> rows, Fault fault)
        : rows_(std::move(rows)), fault_(fault) {}

    bool Eof() const override { return rows_->Eof(); }
    void MoveNext() override { rows_->MoveNext(); }
    int FieldCount() const override { return rows_->FieldCount(); }
    const std::string& FieldName(int column) const override { return rows_->FieldName(column); }
    int FieldIndex(std::string_view name) const override { return rows_->FieldIndex(name); }
    const store::Value& Field(int column) const override { return rows_->Field(column); }
    void AddNew() override { rows_->AddNew(); }
    void SetField(std::string_view name, store::Value value) override {
        constexpr auto kFirstOfFour = static_cast<char>(0xF0);
        if (const std::string* text = value.TextIf();
            text && fault_ == Fault::LosesRareCharacters) {
            value = text->substr(0, text->find(kFirstOfFour));
        }
        rows_->SetField(name, std::move(value));
        if (name == "tDone" && fault_ == Fault::ChangesAnotherField) {
            rows_->SetField("TaskID", 5);
        }
    }
    void Update() override {
        rows_->Update();
        if (fault_ == Fault::WritesAndRefuses) {
            throw RuntimeError(ErrorNumber::DatabaseFailure, "planted fault");
        }
    }
    void Close() override { rows_->Close(); }

 private:
    std::unique_ptr<store::Recordset> rows_;
    Fault fault_;
};

class FaultyConnection final : public store::Connection {
 public:
    FaultyConnection(std::unique_ptr<store::Connection> connection, Fault fault)
        : connection_(std::move(connection)), fault_(fault) {}

    int State() const override { return connection_->State(); }
    void Close() override { connection_->Close(); }
    int Execute(const std::string& sql) override { return connection_->Execute(sql); }
    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                           store::LockType lock) override {
        return std::make_unique<FaultyRows>(connection_->Open(sql, cursor, lock), fault_);
    }

 private:
    std::unique_ptr<store::Connection> connection_;
    Fault fault_;
};

}  // namespace zv::doubles

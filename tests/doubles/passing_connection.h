// A connection that passes everything on, for doubles that change one thing of it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "store/connection.h"

namespace zv::doubles {

class PassingRows : public store::Recordset {
 public:
    explicit PassingRows(std::unique_ptr<store::Recordset> rows) : rows_(std::move(rows)) {}

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
    void Update() override { rows_->Update(); }
    void Close() override { rows_->Close(); }

 private:
    std::unique_ptr<store::Recordset> rows_;
};

class PassingConnection : public store::Connection {
 public:
    explicit PassingConnection(std::unique_ptr<store::Connection> connection)
        : connection_(std::move(connection)) {}

    int State() const override { return connection_->State(); }
    void Close() override { connection_->Close(); }
    int Execute(const std::string& sql) override { return connection_->Execute(sql); }
    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                           store::LockType lock) override {
        return connection_->Open(sql, cursor, lock);
    }
    bool HasTable(std::string_view table) override { return connection_->HasTable(table); }

 private:
    std::unique_ptr<store::Connection> connection_;
};

}  // namespace zv::doubles

// Keeps the names of the fields that are set through recordsets, in the order of setting.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/connection.h"

namespace zv::doubles {

class WrittenFields {
 public:
    /// The connection, watched. This must outlive it.
    std::unique_ptr<store::Connection> Watch(std::unique_ptr<store::Connection> connection) {
        return std::make_unique<Watched>(std::move(connection), names);
    }
    std::vector<std::string> names;

 private:
    class Rows : public store::Recordset {
     public:
        Rows(std::unique_ptr<store::Recordset> rows, std::vector<std::string>& names)
            : rows_(std::move(rows)), names_(names) {}
        bool Eof() const override { return rows_->Eof(); }
        void MoveNext() override { rows_->MoveNext(); }
        int FieldCount() const override { return rows_->FieldCount(); }
        const std::string& FieldName(int column) const override { return rows_->FieldName(column); }
        int FieldIndex(std::string_view name) const override { return rows_->FieldIndex(name); }
        const store::Value& Field(int column) const override { return rows_->Field(column); }
        void AddNew() override { rows_->AddNew(); }
        void SetField(std::string_view name, store::Value value) override {
            names_.emplace_back(name);
            rows_->SetField(name, std::move(value));
        }
        void Update() override { rows_->Update(); }
        void Close() override { rows_->Close(); }

     private:
        std::unique_ptr<store::Recordset> rows_;
        std::vector<std::string>& names_;
    };

    class Watched : public store::Connection {
     public:
        Watched(std::unique_ptr<store::Connection> connection, std::vector<std::string>& names)
            : connection_(std::move(connection)), names_(names) {}
        int State() const override { return connection_->State(); }
        void Close() override { connection_->Close(); }
        int Execute(const std::string& sql) override { return connection_->Execute(sql); }
        std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                               store::LockType lock) override {
            return std::make_unique<Rows>(connection_->Open(sql, cursor, lock), names_);
        }

     private:
        std::unique_ptr<store::Connection> connection_;
        std::vector<std::string>& names_;
    };
};

}  // namespace zv::doubles

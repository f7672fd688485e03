// Keeps the names of the fields that are set through recordsets, in the order of setting.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "doubles/passing_connection.h"

namespace zv::doubles {

class WrittenFields {
 public:
    /// The connection, watched. This must outlive it.
    std::unique_ptr<store::Connection> Watch(std::unique_ptr<store::Connection> connection) {
        return std::make_unique<Watched>(std::move(connection), names);
    }
    std::vector<std::string> names;

 private:
    class Rows final : public PassingRows {
     public:
        Rows(std::unique_ptr<store::Recordset> rows, std::vector<std::string>& names)
            : PassingRows(std::move(rows)), names_(names) {}
        void SetField(std::string_view name, store::Value value) override {
            names_.emplace_back(name);
            PassingRows::SetField(name, std::move(value));
        }

     private:
        std::vector<std::string>& names_;
    };

    class Watched final : public PassingConnection {
     public:
        Watched(std::unique_ptr<store::Connection> connection, std::vector<std::string>& names)
            : PassingConnection(std::move(connection)), names_(names) {}
        std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                               store::LockType lock) override {
            return std::make_unique<Rows>(PassingConnection::Open(sql, cursor, lock), names_);
        }

     private:
        std::vector<std::string>& names_;
    };
};

}  // namespace zv::doubles

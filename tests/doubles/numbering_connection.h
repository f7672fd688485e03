// An engine that numbers the rows itself and takes no number.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/errors.h"
#include "doubles/passing_connection.h"

namespace zv::doubles {

class NumberingRows final : public PassingRows {
 public:
    using PassingRows::PassingRows;
    void SetField(std::string_view name, store::Value value) override {
        if (name == "fID") throw RuntimeError(ErrorNumber::DatabaseFailure, "cannot be set");
        PassingRows::SetField(name, std::move(value));
    }
};

class NumberingConnection final : public PassingConnection {
 public:
    using PassingConnection::PassingConnection;
    std::unique_ptr<store::Recordset> Open(const std::string& sql, store::CursorType cursor,
                                           store::LockType lock) override {
        return std::make_unique<NumberingRows>(PassingConnection::Open(sql, cursor, lock));
    }
};

}  // namespace zv::doubles

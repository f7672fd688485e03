// A connection that shows an observer every statement before it passes it on: the statement
// log, and the place where tests make the database fail.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "store/connection.h"

namespace zv::store {

class StatementObserver {
 public:
    virtual ~StatementObserver() = default;
    /// A statement handed to Execute or Open, exactly as sent. May throw, which fails it.
    virtual void OnStatement(const std::string& sql) = 0;
    /// A row is about to be written through a recordset, without a statement text. May throw.
    virtual void OnRowUpdate() = 0;
};

/// `observer` must outlive the connection and its recordsets.
std::unique_ptr<Connection> ObserveStatements(std::unique_ptr<Connection> connection,
                                              StatementObserver& observer);

}  // namespace zv::store

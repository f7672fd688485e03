// Statements on a server of which all are kept or none.
#pragma once

#include <exception>

#include "zvdb/import/server_link.h"

namespace zv::zvdb {

/// Undone unless it is committed.
class ServerTransaction {
 public:
    explicit ServerTransaction(ServerLink& link) : link_(link) { link_.Run("begin transaction"); }
    ~ServerTransaction() {
        if (committed_) return;
        try {
            link_.Run("rollback");
        } catch (const std::exception&) {
            // The connection is gone, and the server has rolled back by itself.
        }
    }
    ServerTransaction(const ServerTransaction&) = delete;
    ServerTransaction& operator=(const ServerTransaction&) = delete;
    void Commit() {
        link_.Run("commit");
        committed_ = true;
    }

 private:
    ServerLink& link_;
    bool committed_ = false;
};

}  // namespace zv::zvdb

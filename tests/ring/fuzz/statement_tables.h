// The tables that statements of the fuzz harness are prepared on.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/dialect/schema_info.h"
#include "store/sqlite/session.h"
#include "temporary_folder.h"

namespace zv::fuzz {

struct Finalise {
    void operator()(sqlite3_stmt* statement) const;
};
using Prepared = std::unique_ptr<sqlite3_stmt, Finalise>;

/// The embedded engine's, with the rows of the fixtures.
class StatementTables {
 public:
    StatementTables();

    store::sqlite::Session& Session() { return *session_; }
    /// Null when the engine refuses it; `tail` is what it left.
    Prepared Prepare(const std::string& sql, std::string& tail);
    std::string LastError() const;
    /// Each row as a text. None when that takes long or the engine fails on the way.
    std::optional<std::vector<std::string>> RowsOf(sqlite3_stmt* statement);
    /// The same tables as a server would describe them.
    const store::dialect::SchemaInfo& ServerSchema() const { return serverSchema_; }

 private:
    test::TemporaryFolder folder_;
    std::unique_ptr<store::sqlite::Session> session_;
    store::dialect::SchemaInfo serverSchema_;
};

}  // namespace zv::fuzz

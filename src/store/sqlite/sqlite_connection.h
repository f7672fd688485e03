// The embedded engine behind the database port.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "store/connection.h"
#include "store/time_limit.h"

namespace zv::store {

struct SqliteOptions {
    /// How long a statement waits for another program's lock, in milliseconds.
    int busyTimeout = 3000;
    /// How long the engine may work for one statement, waiting for its reader not counted; 0 is for
    /// ever. A statement that changes rows and is ended has changed none.
    std::chrono::milliseconds statementLimit = kStatementLimit;
    /// Statements are in the system's dialect (dialect/translator.h); otherwise in the engine's
    /// own, and recordsets cannot be written.
    bool translate = true;
    /// Dates come as the texts that are stored rather than as date values.
    bool datesAsText = false;
};

/// Opens an existing database file (UTF-8 path) for reading and writing; never creates one, and
/// leaves it in the journal mode that it has. In write-ahead mode it is refused on a network share.
/// Throws RuntimeError, source "SQLite", whose text gives the reason and the path: error 53 when
/// the file is missing, 75 when it cannot be read or written, DatabaseFailure when it is empty, no
/// database, damaged or locked.
///
/// Recordsets opened read-only read rows as they are asked for, whatever the cursor - in a
/// roll-back mode all at once, because a reader would keep others from writing -; with any other
/// lock the keys of the result are taken at the first look at a row, and each row is read when it
/// becomes current. A row that another connection changed or deleted meanwhile is not overwritten:
/// Update throws DatabaseConflict.
std::unique_ptr<Connection> OpenSqlite(const std::string& path, const SqliteOptions& options = {});

/// Whether the file begins as the engine's files do. False when it cannot be read.
bool IsSqliteFile(const std::string& path);

}  // namespace zv::store

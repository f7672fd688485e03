// The tables of the system on a server: making them, filling them, looking them over.
#pragma once

#include <string>

#include "zvdb/check.h"
#include "zvdb/progress.h"
#include "zvdb/sample.h"

namespace zv::zvdb {

/// Makes the empty tables. A database that has one of them is refused unless `replace`, which drops
/// those of the system, the side tables with them, and nothing else; other tables do not matter.
/// All or nothing. Throws RuntimeError or FileError.
void CreateServerTables(const std::string& server, bool replace, bool sideTables);

/// The same with sample data. The rows come in one step after the tables: when they cannot be
/// written, the tables stay empty.
void CreateServerSample(const std::string& server, bool replace, bool sideTables,
                        const SampleOptions& options, Progress& progress);

/// Never writes. The rules are those of a file, all of one moment where the server can do that.
Report CheckServer(const std::string& server);

}  // namespace zv::zvdb

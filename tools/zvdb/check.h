// Looks a database over: is the file whole, is the schema there, does everything that refers to
// something find it, and do the values keep the rules.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "zvdb/engine.h"
#include "zvdb/inspected.h"

namespace zv::zvdb {

/// The file cannot be looked into at all: missing, empty, not a database, cut short, locked.
class FileError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

struct Report {
    /// Rows of each table of the schema that is there, in the schema's order, then of each side
    /// table that is there.
    std::vector<std::pair<std::string, std::int64_t>> counts;
    /// A sentence each; empty when all is well.
    std::vector<std::string> problems;
};

/// Throws FileError for what can be known of a file before the engine opens it.
void CheckFile(const std::string& path);
/// The engine's error as a FileError.
[[noreturn]] void ThrowFileError(const EngineError& error);

/// The tables and columns of the schema that are missing, and the counts; does not look at the
/// rows.
Report CheckSchema(Inspected& database);
Report CheckSchema(Engine& engine);

/// Everything, on whatever engine.
Report CheckContents(Inspected& database);

/// Stands before the reason why a check of what was written could not be made.
inline constexpr char kNoCheck[] = "the check could not be made: ";

/// Never writes to the file. Throws FileError.
Report CheckDatabase(const std::string& path);

namespace rules {

/// Each adds what it finds to `problems`; only called when the tables and columns that it reads
/// are there.
void CheckItems(Inspected& database, std::vector<std::string>& problems);
void CheckPlans(Inspected& database, std::vector<std::string>& problems);
void CheckRegistry(Inspected& database, std::vector<std::string>& problems);

/// None of them is no problem. Asks for the tables and columns by itself.
void CheckSideTables(Inspected& database, std::vector<std::string>& problems);

/// Adds "<what>: <first few keys> (N in all)" when `select` (its first columns are the key) yields
/// rows.
void Find(Inspected& database, std::vector<std::string>& problems, const std::string& what,
          const std::string& select, int keyColumns = 1);

}  // namespace rules

}  // namespace zv::zvdb

// Looks a database over: is the file whole, is the schema there, does everything that refers to
// something find it, and do the values keep the rules.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "zvdb/engine.h"

namespace zv::zvdb {

/// The file cannot be looked into at all: missing, empty, not a database, cut short, locked.
class FileError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

struct Report {
    /// Rows of each table of the schema that is there, in the schema's order.
    std::vector<std::pair<std::string, std::int64_t>> counts;
    /// A sentence each; empty when all is well.
    std::vector<std::string> problems;
};

/// Throws FileError for what can be told of a file before the engine opens it.
void CheckFile(const std::string& path);
/// The engine's error as a FileError.
[[noreturn]] void ThrowFileError(const EngineError& error);

/// The tables and columns that are missing, and the counts; does not look at the rows.
Report CheckSchema(Engine& engine);

/// Never writes to the file. Throws FileError.
Report CheckDatabase(const std::string& path);

namespace rules {

/// Each adds what it finds to `problems`; only called when the tables and columns that it reads
/// are there.
void CheckItems(Engine& engine, std::vector<std::string>& problems);
void CheckPlans(Engine& engine, std::vector<std::string>& problems);
void CheckRegistry(Engine& engine, std::vector<std::string>& problems);

/// Adds "N <what>: <first few keys>" when `select` (its first column is the key) yields rows.
void Find(Engine& engine, std::vector<std::string>& problems, const std::string& what,
          const std::string& select);

}  // namespace rules

}  // namespace zv::zvdb

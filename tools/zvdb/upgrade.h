// Makes what a database has not yet of the side tables. The tables of the system stay as they are.
#pragma once

#include <string>
#include <vector>

#include "zvdb/side_tables.h"

namespace zv::zvdb {

/// Answers what was made, all of it or nothing, or with `dryRun` what would be; then not a byte
/// changes. Throws FileError for a file that is no database of the system or that has side tables
/// of another making, EngineError, ShareError or Interrupted.
std::vector<SidePart> UpgradeFile(const std::string& path, bool dryRun);

/// The same on a server. Throws FileError or RuntimeError.
std::vector<SidePart> UpgradeServer(const std::string& server, bool dryRun);

}  // namespace zv::zvdb

// What the two names of an import stand for.
#pragma once

#include <memory>
#include <string>

#include "zvdb/import/table_source.h"
#include "zvdb/import/table_target.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

/// "Driver=...;Server=..." and not the name of a file that is there.
bool IsConnectionString(const std::string& name);

/// How messages call it: a connection string without what must stay secret.
std::string ShownName(const std::string& name);

/// Files are told by their content, not by their names. Throws SourceError.
std::unique_ptr<TableSource> OpenSource(const std::string& name);
/// Throws TargetError. `progress` must outlive the target.
std::unique_ptr<TableTarget> OpenTarget(const std::string& name, Progress& progress);

/// Both name one database, by whatever paths.
bool IsSameDatabase(const std::string& from, const std::string& to);

}  // namespace zv::zvdb

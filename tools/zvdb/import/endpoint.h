// What the two names of an import stand for.
#pragma once

#include <memory>
#include <string>

#include "zvdb/import/table_source.h"
#include "zvdb/import/table_target.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

/// Names a server, as the control's data path does: "postgresql:HOST", "Driver={...};Server=..." or
/// "DSN=...", and not a file that is there.
bool IsServer(const std::string& name);

/// By its content.
bool IsAccessFile(const std::string& name);

/// How messages call it: never with a login or a password.
std::string ShownName(const std::string& name);

/// Files are recognised by their content, not by their names. Throws SourceError.
std::unique_ptr<TableSource> OpenSource(const std::string& name);
/// Throws TargetError. `progress` must outlive the target. A new file gets the rights of `source`,
/// when that is a file.
std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const std::string& source,
                                        Progress& progress);

/// Both name one file, by whatever paths. Servers are distinguished once they are open.
bool IsSameFile(const std::string& from, const std::string& to);

}  // namespace zv::zvdb

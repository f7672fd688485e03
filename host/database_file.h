// What a file that is offered as a database is.
#pragma once

#include <string>

namespace zv::host {

enum class DatabaseFile { Sqlite, Access };

/// Tells by the file's first bytes. Never creates or changes it. Throws RuntimeError with the
/// reason and the path when it is missing, no file, empty, not readable or none of the kinds.
DatabaseFile RecogniseDatabase(const std::string& path);

}  // namespace zv::host

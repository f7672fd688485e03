// What can be known of a database file before the engine opens it.
#pragma once

#include <string>

namespace zv::store::engines {
struct Engine;
}

namespace zv::store::sqlite {

inline constexpr const char* kErrorSource = "SQLite";

/// What is known of the engine beside the engine itself.
const engines::Engine& EmbeddedEngine();

/// Throws the errors of OpenSqlite for a file that is missing, unreadable, empty or no database.
void CheckDatabaseFile(const std::string& path);

}  // namespace zv::store::sqlite

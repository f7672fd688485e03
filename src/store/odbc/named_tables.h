// The tables that a statement is about.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zv::store::odbc {

/// The names behind "from", "join", "into" and "update" in a statement of the system's dialect, as
/// written and without a schema. A statement that cannot be read names none: what is wrong with it
/// is for its translation to say.
std::vector<std::string> NamedTables(std::string_view statement);

}  // namespace zv::store::odbc

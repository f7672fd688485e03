// Statements that write one row.
#pragma once

#include <string>
#include <vector>

namespace zv::store::rows {

/// Both take names in quotes; the values are parameters in the order of the names.
std::string InsertStatement(const std::string& table, const std::vector<std::string>& names);
/// Without a condition. `names` must not be empty.
std::string UpdateStatement(const std::string& table, const std::vector<std::string>& names);

}  // namespace zv::store::rows

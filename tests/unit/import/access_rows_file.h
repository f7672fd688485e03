// What the Access files of the tests hold.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace zv::zvdb {

/// Rows as "column=value|..." in the order of the columns' names, sorted; NULL is "NULL", a text
/// stands in quotes. By table.
using RowsByTable = std::map<std::string, std::vector<std::string>>;

/// From the list beside the fixtures.
RowsByTable ExpectedRows();
/// From an embedded file.
RowsByTable StoredRows(const std::string& path);

std::string AccessFixture(const std::string& name);

}  // namespace zv::zvdb

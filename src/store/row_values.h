// The fields of a row that is written, in the order of writing.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "store/connection.h"

namespace zv::store {

using RowValues = std::vector<Value>;

/// The fields of the current row, in the order in which they are named.
RowValues ReadRow(const Recordset& row, std::span<const std::string_view> fields);
/// Sets them, in that order; does not save the row.
void WriteRow(Recordset& row, std::span<const std::string_view> fields, const RowValues& values);

}  // namespace zv::store

// The fields of a row that is written, in the order of writing.
#pragma once

#include <cstdint>
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
/// What the engine put into `column` of a row that was just written through a recordset; 0 when it
/// does not give it.
std::int32_t NumberOfNewRow(const Recordset& row, std::string_view column);

}  // namespace zv::store

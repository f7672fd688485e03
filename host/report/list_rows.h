// The rows of a list as the database answers them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "report/document.h"
#include "report/parameters.h"
#include "store/connection.h"

namespace zv::report {

/// The statement of the item list: filter and order without their words, each may be empty.
std::string ListStatement(const std::string& filter, const std::string& order);

/// All rows of an opened statement. Without columns all its fields are printed under their own
/// names. Throws DatabaseColumn for a column that the rows do not have.
Table ReadRows(store::Recordset& rows, const std::vector<Heading>& columns, DateTime today,
               std::int16_t language);

}  // namespace zv::report

// Names in what a server says: PostgreSQL keeps them in lower case, the reader of its words wrote
// them otherwise.
#pragma once

#include <string>
#include <string_view>

namespace zv::store::odbc {

/// `text` with each name that stands in `statement` as the statement writes it.
std::string WithNamesAsWritten(std::string_view text, std::string_view statement);

}  // namespace zv::store::odbc

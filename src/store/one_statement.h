// The rule of every engine that passes statements on as they are.
#pragma once

#include <string_view>

namespace zv::store {

/// Throws RuntimeError (DatabaseStatement) that names the place unless the text is one statement
/// and nothing else. Outside of literals and quoted names there may be no comment and no character
/// that engines read differently; every literal and name ends; a semicolon may only end the text;
/// and where the statement reads or changes rows, no word begins another one. `source` is named as
/// the origin of the error.
void RequireOneStatement(std::string_view sql, std::string_view source);

}  // namespace zv::store

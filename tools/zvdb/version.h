// What this program is made of.
#pragma once

#include <string>

namespace zv::zvdb {

/// The version of the program and of each library inside it, a line each. What the system lends
/// while the program runs (ODBC, its drivers) is not inside.
std::string VersionText();

}  // namespace zv::zvdb

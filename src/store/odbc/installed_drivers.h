// The ODBC drivers of this machine.
#pragma once

#include <string>
#include <vector>

namespace zv::store::odbc {

/// Their names, as connection strings take them.
std::vector<std::string> InstalledDrivers();

}  // namespace zv::store::odbc

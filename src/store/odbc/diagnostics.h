// What went wrong, read from the diagnostic records of driver and driver manager.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "store/odbc/odbc_api.h"

namespace zv::store::odbc {

enum class Fault {
    Statement,       ///< the server does not understand it
    Table,           ///< names a table that is not there
    Column,          ///< names a column that is not there
    Other,           ///< refused for another reason
    TimeLimit,       ///< did not end in time; the connection is whole
    ConnectionLost,  ///< the connection is of no further use
    LoginRefused,
    ServerUnknown,  ///< no such machine, or nothing answers there
    DatabaseUnknown,
    TooManyConnections,
    DriverMissing,
};

struct Diagnosis {
    Fault fault = Fault::Other;
    ServerCode code;
    std::string text;  ///< the driver's words without its decorations
};

/// The first record of the handle that names an error. `connecting` says what was tried, which the
/// codes of drivers alone do not always distinguish.
Diagnosis Diagnose(SQLSMALLINT kind, SQLHANDLE handle, bool connecting);

/// As above, from a record's parts.
Diagnosis Diagnose(std::string sqlState, std::int32_t native, std::string_view driverText,
                   bool connecting);

/// The error for a failure to connect to `name`.
RuntimeError ConnectError(const Diagnosis& diagnosis, const std::string& name,
                          const std::vector<std::string>& secrets);
/// The error for a statement that failed.
RuntimeError StatementError(const Diagnosis& diagnosis, const std::vector<std::string>& secrets);

}  // namespace zv::store::odbc

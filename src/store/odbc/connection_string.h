// Connection strings of ODBC, made from what the control's properties hold.
#pragma once

#include <string>
#include <string_view>

#include "store/connection_entries.h"
#include "store/connection_opener.h"
#include "store/odbc/odbc_connection.h"

namespace zv::store::odbc {

/// Whether a data path is a whole connection string of ODBC: it names a driver or a data source.
bool IsOdbcConnectionString(std::string_view dataPath);
/// As above, or it names a PostgreSQL server: nothing that an OLE DB provider could open.
bool IsForOdbc(std::string_view dataPath);

/// Options to open a server by. The data path is
///   - a whole connection string ("Driver={…};Server=…", "DSN=…"): login, password and database are
///     added where it holds none;
///   - "postgresql:HOST", "postgresql:HOST:PORT" or "postgresql://HOST:PORT/DATABASE": PostgreSQL;
///   - otherwise a machine with SQL Server: "HOST", "HOST\INSTANCE", "HOST,PORT", "HOST:PORT".
/// Throws CannotCreateObject when no driver for the server is installed.
OdbcOptions OptionsFor(const ConnectionSettings& settings);
/// The same for a server that the data path alone names.
OdbcOptions OptionsFor(const std::string& dataPath);

}  // namespace zv::store::odbc

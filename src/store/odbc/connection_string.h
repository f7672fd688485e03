// Connection strings of ODBC, made from what the control's properties hold.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/connection_opener.h"
#include "store/odbc/odbc_connection.h"

namespace zv::store::odbc {

/// "name=value" entries in their order; values without braces.
class ConnectionEntries {
 public:
    ConnectionEntries() = default;
    /// Reads "Driver={PostgreSQL Unicode};Server=db". A "}" inside braces is doubled.
    explicit ConnectionEntries(std::string_view text);

    /// Empty when there is no such entry; names in any case.
    std::string_view Value(std::string_view name) const;
    /// The first of `names` that there is.
    std::string_view FirstOf(std::span<const std::string_view> names) const;
    bool Has(std::string_view name) const;
    bool HasAnyOf(std::span<const std::string_view> names) const;
    void Add(std::string_view name, std::string_view value);
    void Remove(std::string_view name);
    /// Values that need it stand in braces.
    std::string Text() const;

 private:
    std::vector<std::pair<std::string, std::string>> entries_;
};

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

/// "HOST:PORT" as SQL Server's drivers take it, "HOST,PORT"; anything else as it stands.
std::string SqlServerAddress(std::string_view path);

/// What messages may call the database of these settings: its server, never a login or a password.
/// Understands whole connection strings of OLE DB, too.
std::string DisplayName(const ConnectionSettings& settings);

}  // namespace zv::store::odbc

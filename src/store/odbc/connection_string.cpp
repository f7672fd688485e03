#include "store/odbc/connection_string.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/errors.h"
#include "base/text.h"
#include "store/odbc/installed_drivers.h"

namespace zv::store::odbc {
namespace {

constexpr std::string_view kPostgreSql = "postgresql:";

// The newest first.
constexpr std::array<std::string_view, 10> kSqlServerDrivers{"ODBC Driver 19 for SQL Server",
                                                             "ODBC Driver 18 for SQL Server",
                                                             "ODBC Driver 17 for SQL Server",
                                                             "ODBC Driver 13.1 for SQL Server",
                                                             "ODBC Driver 13 for SQL Server",
                                                             "ODBC Driver 11 for SQL Server",
                                                             "SQL Server Native Client 11.0",
                                                             "SQL Server Native Client 10.0",
                                                             "FreeTDS",
                                                             "SQL Server"};
constexpr std::array<std::string_view, 4> kPostgreSqlDrivers{
    "PostgreSQL Unicode(x64)", "PostgreSQL Unicode", "PostgreSQL Unicode(x86)", "psqlODBC"};

constexpr auto kLoginNames =
    std::to_array<std::string_view>({"UID", "User ID", "Username", "User"});
constexpr auto kPasswordNames = std::to_array<std::string_view>({"PWD", "Password"});
constexpr auto kDatabaseNames =
    std::to_array<std::string_view>({"Database", "Initial Catalog", "DBQ"});

// What makes a text a whole connection string.
constexpr auto kSourceNames = std::to_array<std::string_view>({"Driver", "DSN", "FileDSN"});

template <std::size_t Count>
std::string ChooseDriver(const std::array<std::string_view, Count>& names, const char* product) {
    const std::vector<std::string> installed = InstalledDrivers();
    for (const std::string_view name : names) {
        for (const std::string& driver : installed) {
            if (text::EqualsIgnoreCase(driver, name)) return driver;
        }
    }
    throw RuntimeError(ErrorNumber::CannotCreateObject,
                       "No ODBC driver for " + std::string(product) + " is installed (" +
                           text::Join({names.begin(), names.end()}, ", ") + ").",
                       kErrorSource)
        .Of(ErrorKind::DriverMissing);
}

bool IsPort(std::string_view text) {
    return !text.empty() && text.size() <= 5 &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// "host:5432" in its parts; an address of the form "[::1]:5432" too.
std::pair<std::string_view, std::string_view> HostAndPort(std::string_view text) {
    if (text.starts_with('[')) {
        const std::size_t end = text.find(']');
        if (end == std::string_view::npos) return {text, {}};
        const std::string_view behind = text.substr(end + 1);
        const bool port = behind.starts_with(':') && IsPort(behind.substr(1));
        return {text.substr(1, end - 1), port ? behind.substr(1) : std::string_view()};
    }
    const std::size_t colon = text.find_first_of(":,");
    if (colon == std::string_view::npos || !IsPort(text.substr(colon + 1))) return {text, {}};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

ConnectionEntries PostgreSqlEntries(std::string_view path) {
    const Address address = ReadAddress(path);
    std::string_view place = address.place;
    std::string_view database;
    if (const std::size_t slash = place.find('/'); slash != std::string_view::npos) {
        database = place.substr(slash + 1);
        place = place.substr(0, slash);
    }
    const auto [host, port] = HostAndPort(place);
    ConnectionEntries entries;
    entries.Add("Driver", ChooseDriver(kPostgreSqlDrivers, "PostgreSQL"));
    entries.Add("Server", host.empty() ? "localhost" : host);
    if (!port.empty()) entries.Add("Port", port);
    if (!database.empty()) entries.Add("Database", database);
    if (!address.login.empty()) {
        const std::size_t colon = address.login.find(':');
        entries.Add("UID", address.login.substr(0, colon));
        if (colon != std::string_view::npos) entries.Add("PWD", address.login.substr(colon + 1));
    }
    return entries;
}

ConnectionEntries SqlServerEntries(std::string_view path) {
    const std::string driver = ChooseDriver(kSqlServerDrivers, "SQL Server");
    ConnectionEntries entries;
    entries.Add("Driver", driver);
    if (text::EqualsIgnoreCase(driver, "FreeTDS")) {
        const auto [host, port] = HostAndPort(path);
        entries.Add("Server", host);
        if (!port.empty()) entries.Add("Port", port);
        entries.Add("TDS_Version", "7.4");
    } else {
        entries.Add("Server", SqlServerAddress(path));
    }
    return entries;
}

bool Names(std::string_view driver, std::string_view product) {
    return text::Contains(text::ToLower(driver), product);
}

/// Limits of libpq that its driver passes on: none of them is there unless asked for. The limit on
/// connecting is none of these: the driver makes it from the login's time limit.
void LimitPostgreSql(ConnectionEntries& entries, const OdbcOptions& options) {
    const auto seconds = [](std::chrono::milliseconds limit) {
        return std::max<long long>(2, limit.count() / 1000);
    };
    std::string extra(entries.Value("pqopt"));
    const auto add = [&](std::string_view name, long long value) {
        if (text::Contains(extra, name)) return;
        extra += (extra.empty() ? "" : " ") + std::string(name) + "=" + std::to_string(value);
    };
    const long long statement = seconds(options.statementLimit);
    add("keepalives_idle", std::max(1LL, statement / 3));
    add("keepalives_interval", std::max(1LL, statement / 10));
    add("keepalives_count", 3);
    add("tcp_user_timeout", statement * 1000);
    entries.Remove("pqopt");
    entries.Add("pqopt", extra);
}

/// What drivers do unless told otherwise and the system cannot use.
void Complete(ConnectionEntries& entries, const OdbcOptions& options) {
    const std::string driver(entries.Value("Driver"));
    const auto preset = [&](std::string_view name, std::string_view value) {
        if (!entries.Has(name)) entries.Add(name, value);
    };
    if (Names(driver, "postgres") || Names(driver, "psqlodbc")) {
        preset("BoolsAsChar", "0");
        LimitPostgreSql(entries, options);
    } else if (Names(driver, "sqlite")) {
        preset("NoCreat", "1");
        preset("Timeout", "3000");
    }
}

}  // namespace

bool IsOdbcConnectionString(std::string_view dataPath) {
    return ConnectionEntries(dataPath).HasAnyOf(kSourceNames);
}

bool IsForOdbc(std::string_view dataPath) {
    return IsOdbcConnectionString(dataPath) ||
           text::ToLower(text::Trim(dataPath)).starts_with(kPostgreSql);
}

OdbcOptions OptionsFor(const ConnectionSettings& settings) {
    OdbcOptions options;
    const std::string_view path = text::Trim(settings.dataPath.ForDriver());
    ConnectionEntries entries;
    if (IsOdbcConnectionString(path)) {
        entries = ConnectionEntries(path);
    } else if (text::ToLower(path).starts_with(kPostgreSql)) {
        entries = PostgreSqlEntries(path);
    } else {
        entries = SqlServerEntries(path);
    }
    const bool sqlServer = Names(entries.Value("Driver"), "sql server") ||
                           Names(entries.Value("Driver"), "sql server native");
    if (!entries.HasAnyOf(kDatabaseNames) && !settings.database.IsEmpty()) {
        entries.Add("Database", settings.database.ForDriver());
    }
    if (!entries.HasAnyOf(kLoginNames)) {
        if (!settings.login.IsEmpty()) {
            entries.Add("UID", settings.login.ForDriver());
        } else if (sqlServer && !entries.Has("Trusted_Connection")) {
            // Without a login the user's own account is asked for.
            entries.Add("Trusted_Connection", "Yes");
        }
    }
    const bool hasLogin = entries.HasAnyOf(kLoginNames);
    if (hasLogin && !entries.HasAnyOf(kPasswordNames) && !settings.password.IsEmpty()) {
        entries.Add("PWD", settings.password.ForDriver());
    }
    options.secrets = settings.Secrets();
    Complete(entries, options);
    options.connectionString = entries.Text();
    options.name = settings.ForMessage();
    return options;
}

OdbcOptions OptionsFor(const std::string& dataPath) {
    ConnectionSettings settings;
    settings.kind = 1;
    settings.dataPath = dataPath;
    return OptionsFor(settings);
}

std::string SqlServerAddress(std::string_view path) {
    const auto [host, port] = HostAndPort(path);
    return port.empty() ? std::string(host) : std::string(host) + "," + std::string(port);
}

}  // namespace zv::store::odbc

#include "store/odbc/connection_string.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/errors.h"
#include "base/text.h"
#include "store/engines/engines.h"
#include "store/odbc/installed_drivers.h"

namespace zv::store::odbc {
namespace {

constexpr auto kLoginNames =
    std::to_array<std::string_view>({"UID", "User ID", "Username", "User"});
constexpr auto kPasswordNames = std::to_array<std::string_view>({"PWD", "Password"});
constexpr auto kDatabaseNames =
    std::to_array<std::string_view>({"Database", "Initial Catalog", "DBQ"});

// What makes a text a whole connection string.
constexpr auto kSourceNames = std::to_array<std::string_view>({"Driver", "DSN", "FileDSN"});

std::string ChooseDriver(const engines::Engine& engine) {
    const auto names = engine.connecting->Drivers();
    const std::vector<std::string> installed = InstalledDrivers();
    for (const std::string_view name : names) {
        for (const std::string& driver : installed) {
            if (text::EqualsIgnoreCase(driver, name)) return driver;
        }
    }
    throw RuntimeError(ErrorNumber::CannotCreateObject,
                       "No ODBC driver for " + std::string(engine.codes->name) + " is installed (" +
                           text::Join({names.begin(), names.end()}, ", ") + ").",
                       kErrorSource)
        .Of(ErrorKind::DriverMissing);
}

}  // namespace

bool IsOdbcConnectionString(std::string_view dataPath) {
    return ConnectionEntries(dataPath).HasAnyOf(kSourceNames);
}

bool IsForOdbc(std::string_view dataPath) {
    return IsOdbcConnectionString(dataPath) || !engines::SchemeOf(text::Trim(dataPath)).empty();
}

OdbcOptions OptionsFor(const ConnectionSettings& settings) {
    OdbcOptions options;
    const std::string_view path = text::Trim(settings.dataPath.ForDriver());
    ConnectionEntries entries;
    if (IsOdbcConnectionString(path)) {
        entries = ConnectionEntries(path);
    } else {
        const engines::Engine& engine = engines::OfAddress(path);
        entries = engine.connecting->EntriesFor(path, ChooseDriver(engine));
    }
    const engines::Engine* engine = engines::OfDriver(entries.Value("Driver"));
    if (!entries.HasAnyOf(kDatabaseNames) && !settings.database.IsEmpty()) {
        entries.Add("Database", settings.database.ForDriver());
    }
    if (!entries.HasAnyOf(kLoginNames)) {
        if (!settings.login.IsEmpty()) {
            entries.Add("UID", settings.login.ForDriver());
        } else if (engine && engine->connecting->AsksForAccounts() &&
                   !entries.Has("Trusted_Connection")) {
            // Without a login the user's own account is asked for.
            entries.Add("Trusted_Connection", "Yes");
        }
    }
    const bool hasLogin = entries.HasAnyOf(kLoginNames);
    if (hasLogin && !entries.HasAnyOf(kPasswordNames) && !settings.password.IsEmpty()) {
        entries.Add("PWD", settings.password.ForDriver());
    }
    options.secrets = settings.Secrets();
    if (engine) engine->connecting->Complete(entries, options.statementLimit);
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

}  // namespace zv::store::odbc

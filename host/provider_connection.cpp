#include "provider_connection.h"

#include <initializer_list>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/win32/com_error.h"
#include "open_errors.h"
#include "store/ado/calls.h"
#include "store/ado/provider_errors.h"
#include "store/connection_entries.h"

namespace zv::host {
namespace {

using win32::ComPtr;
using win32::Variant;

std::string ChooseProvider(const store::engines::Engine& engine, std::string_view path,
                           std::string_view kind) {
    std::string names;
    for (const std::string_view provider : engine.connecting->Providers()) {
        if (automation::IsRegistered(win32::ToWide(provider).c_str())) {
            return std::string(provider);
        }
        if (!names.empty()) names += ", ";
        names += provider;
    }
    throw CannotOpen(ErrorNumber::CannotCreateObject, path,
                     "No data provider for " + std::string(kind) + " is installed (" + names + ").",
                     ErrorKind::DriverMissing);
}

ComPtr<IDispatch> OpenAdo(const std::string& connectionString,
                          const store::ConnectionSettings& settings) {
    const std::string path = settings.ForMessage();
    ComPtr<IDispatch> connection;
    const HRESULT hr = automation::Create(L"ADODB.Connection", connection);
    if (FAILED(hr)) {
        throw CannotOpen(ErrorNumber::CannotCreateObject, path,
                         "ADODB.Connection cannot be created: " + win32::SystemMessage(hr),
                         ErrorKind::DriverMissing);
    }
    store::ado::Member open(L"Open");
    try {
        store::ado::WithKind(*connection, [&] {
            store::ado::Call(*connection, open,
                             {Variant(std::string_view(connectionString)).Get()});
        });
    } catch (const RuntimeError& error) {
        const std::string reason = settings.WithoutSecrets(error.Text());
        // Nothing was there to be lost.
        const ErrorKind kind =
            error.Kind() == ErrorKind::ConnectionLost ? ErrorKind::ServerUnknown : error.Kind();
        throw RuntimeError(error.Number(), CannotOpen(error.Number(), path, reason).Text(),
                           error.Source())
            .Of(kind);
    }
    return connection;
}

}  // namespace

std::string ConnectionEntry(std::string_view name, std::string_view value) {
    return std::string(name) + "=\"" + text::Replace(value, "\"", "\"\"") + "\";";
}

ComPtr<IDispatch> OpenFile(const store::engines::Engine& engine,
                           const store::ConnectionSettings& settings) {
    const std::string provider = ChooseProvider(engine, settings.ForMessage(),
                                                std::string(engine.codes->name) + " databases");
    std::string entries = "Provider=" + provider + ";";
    entries += ConnectionEntry("Data Source", settings.dataPath.ForDriver());
    if (!settings.password.IsEmpty()) {
        entries +=
            ConnectionEntry(engine.connecting->PasswordEntry(), settings.password.ForDriver());
    }
    return OpenAdo(entries, settings);
}

ComPtr<IDispatch> OpenServer(const store::ConnectionSettings& settings) {
    const std::string name = settings.ForMessage();
    const store::ConnectionEntries given(settings.dataPath.ForDriver(),
                                         store::ConnectionEntries::Quoting::BracesAndQuotes);
    const bool isWhole = given.Has("Provider");
    std::string entries;
    if (isWhole) {
        entries = settings.dataPath.ForDriver() +
                  (text::Trim(settings.dataPath.ForDriver()).ends_with(';') ? "" : ";");
    } else {
        const store::engines::Engine& engine =
            store::engines::OfAddress(settings.dataPath.ForDriver());
        entries = "Provider=" + ChooseProvider(engine, name, engine.codes->name) + ";";
        entries += ConnectionEntry("Data Source", settings.dataPath.ForDriver());
    }
    const auto holds = [&](std::initializer_list<std::string_view> names) {
        return isWhole && given.HasAnyOf({names.begin(), names.size()});
    };
    if (!settings.database.IsEmpty() && !holds({"Initial Catalog", "Database"})) {
        entries += ConnectionEntry("Initial Catalog", settings.database.ForDriver());
    }
    if (!holds({"User ID", "UID", "Integrated Security", "Trusted_Connection"})) {
        if (settings.login.IsEmpty()) {
            // Without a login the user's own account is asked for.
            entries += "Integrated Security=SSPI;";
        } else {
            entries += ConnectionEntry("User ID", settings.login.ForDriver());
            entries += ConnectionEntry("Password", settings.password.ForDriver());
        }
    }
    return OpenAdo(entries, settings);
}

}  // namespace zv::host

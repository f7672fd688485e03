#include "opener_object.h"

#include <array>

#include "connection_object.h"
#include "database_file.h"
#include "provider_connection.h"
#include "store/odbc/connection_string.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::host {
namespace {

using automation::Offers;
using win32::ComPtr;
using win32::Variant;

/// The kind is the first argument; `firstText` is the position of the path, which the other texts
/// follow.
store::ConnectionSettings ReadSettings(const Arguments& arguments, std::size_t firstText) {
    store::ConnectionSettings settings;
    settings.kind = arguments.Int(0, 0);
    settings.dataPath = arguments.Text(firstText);
    settings.password = arguments.Text(firstText + 1);
    settings.login = arguments.Text(firstText + 2);
    settings.database = arguments.Text(firstText + 3);
    return settings;
}

}  // namespace

ComPtr<IDispatch> OpenDatabase(const store::ConnectionSettings& settings) {
    if (settings.kind >= 1) {
        if (!store::odbc::IsForOdbc(settings.dataPath.ForDriver())) return OpenServer(settings);
        auto connection = win32::MakeCom<ConnectionObject>(
            [settings] { return store::odbc::OpenOdbc(store::odbc::OptionsFor(settings)); },
            ConnectionEntry("Data Source", settings.ForMessage()));
        return ComPtr<IDispatch>(connection.Get());
    }
    const store::engines::Engine& engine = RecogniseDatabase(settings.dataPath.ForDriver());
    if (!engine.connecting->Providers().empty()) return OpenFile(engine, settings);
    const std::string& path = settings.dataPath.ForDriver();
    auto connection =
        win32::MakeCom<ConnectionObject>([path] { return store::OpenSqlite(path); },
                                         ConnectionEntry("Data Source", settings.ForMessage()));
    return ComPtr<IDispatch>(connection.Get());
}

std::span<const MemberEntry<OpenerObject>> OpenerObject::Members() {
    static constexpr std::array<MemberEntry<OpenerObject>, 2> kMembers{{
        Offers<&OpenerObject::OpenConnection>(store::ado::kOpenConnection, 1),
        Offers<&OpenerObject::OpenShared>(L"OpenShared", 2),
    }};
    return kMembers;
}

Variant OpenerObject::OpenConnection(const Arguments& arguments) {
    return Variant(OpenDatabase(ReadSettings(arguments, 1)).Get());
}

Variant OpenerObject::OpenShared(const Arguments& arguments) {
    arguments.Store(1, Variant(OpenDatabase(ReadSettings(arguments, 2)).Get()));
    return Variant(std::int16_t{1});
}

}  // namespace zv::host

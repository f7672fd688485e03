#include "store/ado/ado_opener.h"

#include "store/ado/ado_connection.h"
#include "store/ado/calls.h"

namespace zv::store::ado {

using win32::ComPtr;
using win32::Variant;

namespace {

std::string Reason(HRESULT hr) {
    // Some systems have no sentence of their own for the most likely of all reasons.
    if (hr == CO_E_CLASSSTRING || hr == REGDB_E_CLASSNOTREG) return "is not registered.";
    return "cannot be created: " + win32::SystemMessage(hr);
}

}  // namespace

std::unique_ptr<Connection> AdoOpener::Open(const ConnectionSettings& settings) {
    ComPtr<IDispatch> opener;
    const HRESULT hr =
        automation::Create(kOpenerProgId, CLSCTX_INPROC_SERVER, kOpenerInterface, opener.PutVoid());
    if (FAILED(hr)) {
        throw RuntimeError(
            ErrorNumber::CannotCreateObject,
            "The connection opener \"" + win32::ToUtf8(kOpenerProgId) + "\" " + Reason(hr))
            .Of(ErrorKind::DriverMissing);
    }
    Member openConnection(kOpenConnection);
    const Variant path{std::string_view(settings.dataPath.ForDriver())};
    const Variant password{std::string_view(settings.password.ForDriver())};
    const Variant login{std::string_view(settings.login.ForDriver())};
    const Variant database{std::string_view(settings.database.ForDriver())};
    const Variant result = Call(*opener, openConnection,
                                {Variant(std::int32_t{settings.kind}).Get(), path.Get(),
                                 password.Get(), login.Get(), database.Get()});
    auto connection = result.Object();
    if (!connection) {
        throw RuntimeError(ErrorNumber::ObjectNotSet,
                           "The connection opener answered no connection.")
            .Of(ErrorKind::Other);
    }
    return WrapConnection(std::move(connection));
}

}  // namespace zv::store::ado

// Asks the connection-opening component of the host suite for the shared connection.
#pragma once

#include <guiddef.h>

#include "store/connection_opener.h"

namespace zv::store::ado {

/// What the component promises: its class is registered under this name and offers this
/// (dispatch) interface, whose method OpenConnection(kind, path, password, login, database)
/// answers an object with the members of ADO's Connection.
inline constexpr wchar_t kOpenerProgId[] = L"zv_Host.Opener";
inline constexpr wchar_t kOpenConnection[] = L"OpenConnection";
// {C419244E-A22E-421D-8332-9AC546896F62}
inline constexpr GUID kOpenerInterface = {
    0xC419244E, 0xA22E, 0x421D, {0x83, 0x32, 0x9A, 0xC5, 0x46, 0x89, 0x6F, 0x62}};

class AdoOpener final : public ConnectionOpener {
 public:
    /// Throws CannotCreateObject when the component is not registered or cannot be loaded, else
    /// the component's own error.
    std::unique_ptr<Connection> Open(const ConnectionSettings& settings) override;
};

}  // namespace zv::store::ado

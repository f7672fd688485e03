#include "platform/win32/connection_settings.h"

namespace zv::platform::win32 {

using zv::win32::Variant;

void PutConnection(automation::LateBound& component, const store::ConnectionSettings& connection) {
    component.Put(L"UserPath", Variant(connection.dataPath.ForDriver()));
    component.Put(L"Password", Variant(connection.password.ForDriver()));
    component.Put(L"SQLData", Variant(std::int32_t{connection.kind}));
    component.Put(L"UserID", Variant(connection.login.ForDriver()));
    component.Put(L"Default", Variant(connection.database.ForDriver()));
}

}  // namespace zv::platform::win32

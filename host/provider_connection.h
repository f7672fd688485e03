// Databases that ADO opens through an installed provider: Access files and servers.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "base/win32/com_ptr.h"
#include "store/connection_opener.h"

namespace zv::host {

/// An opened ADODB.Connection. Throws RuntimeError with the path and the reason: ADO or a provider
/// is not installed, or what the provider reports.
win32::ComPtr<IDispatch> OpenAccess(const store::ConnectionSettings& settings);
win32::ComPtr<IDispatch> OpenServer(const store::ConnectionSettings& settings);

/// "name=value;" of a connection string, the value in quotes so that it cannot add entries.
std::string ConnectionEntry(std::string_view name, std::string_view value);

}  // namespace zv::host

// Databases that ADO opens through an installed provider: files and servers.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "base/win32/com_ptr.h"
#include "store/connection_opener.h"
#include "store/engines/engines.h"

namespace zv::host {

/// An opened ADODB.Connection. Throws RuntimeError with the path and the reason: ADO or a provider
/// is not installed, or what the provider reports.
win32::ComPtr<IDispatch> OpenFile(const store::engines::Engine& engine,
                                  const store::ConnectionSettings& settings);
win32::ComPtr<IDispatch> OpenServer(const store::ConnectionSettings& settings);

/// "name=value;" of a connection string, the value in quotes so that it cannot add entries.
std::string ConnectionEntry(std::string_view name, std::string_view value);

}  // namespace zv::host

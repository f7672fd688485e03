// Descriptions out of the type library that this file carries.
#pragma once

#include <oaidl.h>

#include "base/win32/com_ptr.h"

namespace zv::com {

/// Throws the system's error when the library cannot be loaded.
win32::ComPtr<ITypeInfo> LoadTypeInfo(REFGUID id);

}  // namespace zv::com

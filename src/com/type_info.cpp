#include "com/type_info.h"

#include <oleauto.h>

#include "automation/module.h"
#include "com/boundary.h"

namespace zv::com {

win32::ComPtr<ITypeInfo> LoadTypeInfo(REFGUID id) {
    // By the own path: the registered library may be that of another version.
    win32::ComPtr<ITypeLib> library;
    ThrowIfFailed(LoadTypeLibEx(automation::module::Path().c_str(), REGKIND_NONE, library.Put()));
    win32::ComPtr<ITypeInfo> info;
    ThrowIfFailed(library->GetTypeInfoOfGuid(id, info.Put()));
    return info;
}

}  // namespace zv::com

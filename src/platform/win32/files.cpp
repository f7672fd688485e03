#include <windows.h>

#include <string>

#include "automation/module.h"
#include "base/win32/wide.h"
#include "platform/win32/machine.h"

namespace zv::platform::win32 {

bool SystemFiles::FileExists(const std::string& path) const {
    if (path.empty()) return false;
    const DWORD attributes = GetFileAttributesW(zv::win32::ToWide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::string SystemFiles::ApplicationFolder() const {
    std::wstring folder = automation::module::Path();
    const std::size_t separator = folder.find_last_of(L'\\');
    if (separator == std::wstring::npos) return {};
    const bool isRoot = separator > 0 && folder[separator - 1] == L':';
    folder.resize(isRoot ? separator + 1 : separator);
    return zv::win32::ToUtf8(folder);
}

}  // namespace zv::platform::win32

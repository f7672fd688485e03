#include <windows.h>

#include <string>

#include "base/win32/wide.h"
#include "platform/win32/machine.h"

namespace zv::platform::win32 {

namespace {

// Path of the file that this code was linked into, whichever program loaded it.
std::wstring OwnPath() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&OwnPath), &module);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace

bool SystemFiles::FileExists(const std::string& path) const {
    if (path.empty()) return false;
    const DWORD attributes = GetFileAttributesW(zv::win32::ToWide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::string SystemFiles::ApplicationFolder() const {
    std::wstring folder = OwnPath();
    const std::size_t separator = folder.find_last_of(L'\\');
    if (separator == std::wstring::npos) return {};
    const bool isRoot = separator > 0 && folder[separator - 1] == L':';
    folder.resize(isRoot ? separator + 1 : separator);
    return zv::win32::ToUtf8(folder);
}

}  // namespace zv::platform::win32

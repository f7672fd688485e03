#include <windows.h>

#include <string>
#include <string_view>

#include "store/sqlite/file_system_of.h"

namespace zv::store::sqlite {
namespace {

constexpr std::wstring_view kUnc = L"\\\\?\\UNC\\";
constexpr const char* kRemote = "remote";

/// The name behind drive letters that stand for a share or a folder, and behind links.
std::wstring RealName(const std::filesystem::path& file) {
    const HANDLE handle =
        CreateFileW(file.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return {};
    std::wstring name(32768, L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(handle, name.data(), static_cast<DWORD>(name.size()), 0);
    CloseHandle(handle);
    name.resize(length < name.size() ? length : 0);
    return name;
}

bool IsUnc(std::wstring_view name) {
    if (name.starts_with(kUnc)) return true;
    return name.size() > 2 && (name[0] == L'\\' || name[0] == L'/') && name[1] == name[0] &&
           name[2] != L'?' && name[2] != L'.';
}

}  // namespace

std::string FileSystemOf(const std::filesystem::path& file) {
    std::error_code failed;
    const std::filesystem::path whole = std::filesystem::absolute(file, failed);
    if (failed) return {};
    if (IsUnc(whole.native())) return kRemote;
    std::wstring real = RealName(whole);
    if (real.empty()) real = RealName(whole.parent_path());
    if (IsUnc(real)) return kRemote;
    for (const std::wstring& root :
         {whole.root_path().wstring(), std::filesystem::path(real).root_path().wstring()}) {
        if (GetDriveTypeW(root.c_str()) == DRIVE_REMOTE) return kRemote;
    }
    return "local";
}

}  // namespace zv::store::sqlite

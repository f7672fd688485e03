#include <windows.h>

#include <aclapi.h>

#include <memory>
#include <string>
#include <system_error>

#include "zvdb/disk_system.h"

namespace zv::zvdb::disk {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const char* what, const fs::path& file, DWORD error) {
    throw fs::filesystem_error(what, file,
                               std::error_code(static_cast<int>(error), std::system_category()));
}

class Handle {
 public:
    Handle(const char* what, const fs::path& file, DWORD access, DWORD disposition)
        : handle_(CreateFileW(file.c_str(), access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle_ == INVALID_HANDLE_VALUE) Fail(what, file, GetLastError());
    }
    ~Handle() { CloseHandle(handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE Get() const { return handle_; }

 private:
    HANDLE handle_;
};

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

}  // namespace

namespace system {

void CreateEmpty(const fs::path& file) {
    Handle("create", file, GENERIC_WRITE, CREATE_NEW);
}

void CreateEmpty(const fs::path& file, const fs::path& other, Like like) {
    PSID owner = nullptr;
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    std::wstring name = other.wstring();
    const DWORD asked = GetNamedSecurityInfoW(
        name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner,
        nullptr, &list, nullptr, &descriptor);
    const std::unique_ptr<void, FreeLocal> held(descriptor);
    CreateEmpty(file);
    // File systems without rights have none to carry over.
    if (asked != ERROR_SUCCESS || list == nullptr) return;
    name = file.wstring();
    // Rights that the folder would add could be wider.
    const DWORD given =
        SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                              DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                              nullptr, nullptr, list, nullptr);
    if (given != ERROR_SUCCESS) {
        DeleteFileW(file.c_str());
        Fail("rights", file, given);
    }
    if (like == Like::Whole) {
        // Who may not give a file away keeps it.
        SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, owner,
                              nullptr, nullptr, nullptr);
    }
}

void Sync(const fs::path& file) {
    const Handle opened("open", file, GENERIC_WRITE, OPEN_EXISTING);
    if (!FlushFileBuffers(opened.Get())) Fail("sync", file, GetLastError());
}

// Renaming writes through.
void SyncFolderOf(const fs::path&) {}

void Rename(const fs::path& from, const fs::path& to, bool replace) {
    const DWORD flags = MOVEFILE_WRITE_THROUGH | (replace ? MOVEFILE_REPLACE_EXISTING : 0);
    if (!MoveFileExW(from.c_str(), to.c_str(), flags)) Fail("rename", to, GetLastError());
}

}  // namespace system

Claim::Claim(const fs::path& file) : file_(file) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        handle_ = reinterpret_cast<std::intptr_t>(handle);
        return;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_SHARING_VIOLATION) Fail("create", file, error);
}

Claim::~Claim() {
    if (IsHeld()) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

// What a program has open cannot be renamed, which says it soon enough.
bool IsLocked(const fs::path&) {
    return false;
}

}  // namespace zv::zvdb::disk

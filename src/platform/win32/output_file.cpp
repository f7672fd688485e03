#include <windows.h>

#include <algorithm>
#include <string>

#include "base/errors.h"
#include "base/win32/wide.h"
#include "platform/win32/machine.h"

namespace zv::platform::win32 {
namespace {

ErrorNumber NumberOf(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_BAD_NETPATH:
        case ERROR_INVALID_DRIVE:
            return ErrorNumber::PathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
        case ERROR_USER_MAPPED_FILE:
            return ErrorNumber::PermissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ErrorNumber::DiskFull;
        default:
            return ErrorNumber::PathFileAccess;
    }
}

std::string ReasonOf(DWORD error) {
    wchar_t text[512];
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] == L'\r' || text[length - 1] == L'\n')) length--;
    if (length == 0) return "Windows error " + std::to_string(error);
    return zv::win32::ToUtf8(std::wstring_view(text, length));
}

[[noreturn]] void Refuse(DWORD error, const std::string& path) {
    throw RuntimeError(NumberOf(error), ReasonOf(error) + "\r\n" + path);
}

// A file that another program keeps open, or that is read-only, is better reported before the work
// than after it.
void RequireReplaceable(const std::wstring& target, const std::string& path) {
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) Refuse(ERROR_ACCESS_DENIED, path);
    const HANDLE file = CreateFileW(target.c_str(), GENERIC_WRITE | DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) Refuse(GetLastError(), path);
    CloseHandle(file);
}

class SystemOutputFile final : public OutputFile {
 public:
    explicit SystemOutputFile(const std::string& path)
        : path_(path), target_(zv::win32::ToWide(path)), part_(target_ + L".zv-part") {
        RequireReplaceable(target_, path_);
        file_ = CreateFileW(part_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file_ == INVALID_HANDLE_VALUE) Refuse(GetLastError(), path_);
    }

    ~SystemOutputFile() override {
        if (committed_) return;
        Close();
        DeleteFileW(part_.c_str());
    }

    void Write(std::string_view bytes) override {
        constexpr std::size_t kLargestWrite = std::size_t{16} * 1024 * 1024;
        while (!bytes.empty()) {
            const std::string_view piece = bytes.substr(0, kLargestWrite);
            DWORD written = 0;
            if (!WriteFile(file_, piece.data(), static_cast<DWORD>(piece.size()), &written,
                           nullptr)) {
                Refuse(GetLastError(), path_);
            }
            if (written == 0) Refuse(ERROR_DISK_FULL, path_);
            bytes.remove_prefix(written);
        }
    }

    void Commit() override {
        if (!FlushFileBuffers(file_)) Refuse(GetLastError(), path_);
        Close();
        if (!MoveFileExW(part_.c_str(), target_.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
            Refuse(GetLastError(), path_);
        }
        committed_ = true;
    }

 private:
    void Close() {
        if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
        file_ = INVALID_HANDLE_VALUE;
    }

    std::string path_;
    std::wstring target_;
    std::wstring part_;
    HANDLE file_ = INVALID_HANDLE_VALUE;
    bool committed_ = false;
};

}  // namespace

std::unique_ptr<OutputFile> SystemFiles::Create(const std::string& path) {
    return std::make_unique<SystemOutputFile>(path);
}

}  // namespace zv::platform::win32

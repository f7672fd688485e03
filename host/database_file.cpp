#include "database_file.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "base/errors.h"
#include "base/win32/wide.h"
#include "open_errors.h"

namespace zv::host {
namespace {

class FileHandle {
 public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    }
    HANDLE Get() const { return handle_; }

 private:
    HANDLE handle_;
};

}  // namespace

const store::engines::Engine& RecogniseDatabase(const std::string& path) {
    if (path.empty())
        throw CannotOpen(ErrorNumber::FileNotFound, path, "No path is given.",
                         ErrorKind::FileMissing);
    const std::wstring widePath = win32::ToWide(path);
    const DWORD attributes = GetFileAttributesW(widePath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) throw CannotOpenFile(path, GetLastError());
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        throw CannotOpen(ErrorNumber::PathFileAccess, path, "It is a folder.",
                         ErrorKind::CannotOpen);
    }
    // An engine that has the file open allows others to read and write it.
    const FileHandle file(CreateFileW(widePath.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.Get() == INVALID_HANDLE_VALUE) throw CannotOpenFile(path, GetLastError());
    std::array<char, 32> start{};
    DWORD length = 0;
    if (!ReadFile(file.Get(), start.data(), static_cast<DWORD>(start.size()), &length, nullptr)) {
        throw CannotOpenFile(path, GetLastError());
    }
    if (length == 0) {
        throw CannotOpen(ErrorNumber::DatabaseFailure, path, "The file is empty.",
                         ErrorKind::NotADatabase);
    }
    const std::string_view head(start.data(), length);
    if (const store::engines::Engine* engine = store::engines::OfFile(head)) return *engine;
    throw CannotOpen(ErrorNumber::DatabaseFailure, path,
                     "The file is neither an embedded database nor an Access database.",
                     ErrorKind::NotADatabase);
}

}  // namespace zv::host

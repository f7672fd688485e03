#include <windows.h>

#include <dpapi.h>

#include <memory>

#include "platform/win32/machine.h"

namespace zv::platform::win32 {
namespace {

DATA_BLOB BlobOf(std::string_view bytes) {
    // The system only reads what it is handed.
    auto* const data = reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data()));
    return {static_cast<DWORD>(bytes.size()), data};
}

// What the system has answered, which is given back and overwritten before: it may hold a password.
std::string Take(const DATA_BLOB& blob) {
    struct Free {
        DWORD size;
        void operator()(BYTE* data) const noexcept {
            SecureZeroMemory(data, size);
            LocalFree(data);
        }
    };
    const std::unique_ptr<BYTE, Free> owner(blob.pbData, Free{blob.cbData});
    return {reinterpret_cast<const char*>(blob.pbData), blob.cbData};
}

// The system's library is loaded by who needs it, and stays: a host that never starts reminders is
// spared it, and one that loads and frees the control again and again loads it once.
template <class Function>
Function Find(const char* name) {
    static const HMODULE library =
        LoadLibraryExW(L"crypt32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!library) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

std::optional<std::string> SystemVault::Seal(std::string_view bytes) {
    DATA_BLOB in = BlobOf(bytes);
    DATA_BLOB out{};
    const auto protect = Find<decltype(&CryptProtectData)>("CryptProtectData");
    if (!protect ||
        !protect(&in, L"zvTask", nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN, &out)) {
        return std::nullopt;
    }
    return Take(out);
}

std::optional<std::string> SystemVault::Reveal(std::string_view sealed) {
    DATA_BLOB in = BlobOf(sealed);
    DATA_BLOB out{};
    const auto unprotect = Find<decltype(&CryptUnprotectData)>("CryptUnprotectData");
    if (!unprotect ||
        !unprotect(&in, nullptr, nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN, &out)) {
        return std::nullopt;
    }
    return Take(out);
}

}  // namespace zv::platform::win32

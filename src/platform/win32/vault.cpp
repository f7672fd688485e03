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

}  // namespace

std::optional<std::string> SystemVault::Seal(std::string_view bytes) {
    DATA_BLOB in = BlobOf(bytes);
    DATA_BLOB out{};
    if (!CryptProtectData(&in, L"zvTask", nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN,
                          &out)) {
        return std::nullopt;
    }
    return Take(out);
}

std::optional<std::string> SystemVault::Reveal(std::string_view sealed) {
    DATA_BLOB in = BlobOf(sealed);
    DATA_BLOB out{};
    if (!CryptUnprotectData(&in, nullptr, nullptr, nullptr, nullptr, CRYPTPROTECT_UI_FORBIDDEN,
                            &out)) {
        return std::nullopt;
    }
    return Take(out);
}

}  // namespace zv::platform::win32

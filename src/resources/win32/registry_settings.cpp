#include "resources/win32/registry_settings.h"

#include <windows.h>

#include <cstring>
#include <optional>
#include <vector>

#include "base/errors.h"
#include "base/hex.h"
#include "base/win32/com_error.h"
#include "base/win32/wide.h"

namespace zv::resources::win32 {

using zv::win32::ToUtf8;
using zv::win32::ToWide;

namespace {

class RegistryKey {
 public:
    explicit RegistryKey(HKEY handle) : handle_(handle) {}
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey() { RegCloseKey(handle_); }
    HKEY Get() const { return handle_; }

 private:
    HKEY handle_;
};

struct StoredValue {
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
};

// Another process may lengthen the value between measuring and reading it.
std::optional<StoredValue> ReadValue(HKEY key, const std::wstring& name) {
    StoredValue value;
    value.bytes.resize(256);
    for (;;) {
        auto size = static_cast<DWORD>(value.bytes.size());
        const LONG result =
            RegQueryValueExW(key, name.c_str(), nullptr, &value.type, value.bytes.data(), &size);
        if (result == ERROR_MORE_DATA) {
            value.bytes.resize(size > value.bytes.size() ? size : value.bytes.size() * 2);
            continue;
        }
        if (result != ERROR_SUCCESS) return std::nullopt;
        value.bytes.resize(size);
        return value;
    }
}

// Stored texts may lack their terminating null, or hold more behind it.
std::string TextOfUnits(const std::vector<BYTE>& bytes, bool severalLines) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    if (!severalLines) {
        text.resize(wcsnlen(text.data(), text.size()));
        return ToUtf8(text);
    }
    while (!text.empty() && text.back() == L'\0') text.pop_back();
    for (wchar_t& unit : text) {
        if (unit == L'\0') unit = L'\n';
    }
    return ToUtf8(text);
}

template <class Number>
std::string TextOfNumber(const std::vector<BYTE>& bytes) {
    Number number = 0;
    std::memcpy(&number, bytes.data(), bytes.size() < sizeof number ? bytes.size() : sizeof number);
    return std::to_string(number);
}

std::string TextOf(const StoredValue& value) {
    switch (value.type) {
        case REG_SZ:
        case REG_EXPAND_SZ:
            return TextOfUnits(value.bytes, false);
        case REG_MULTI_SZ:
            return TextOfUnits(value.bytes, true);
        case REG_DWORD:
            return TextOfNumber<std::uint32_t>(value.bytes);
        case REG_QWORD:
            return TextOfNumber<std::uint64_t>(value.bytes);
        default:
            return hex::FromBytes(
                {reinterpret_cast<const char*>(value.bytes.data()), value.bytes.size()});
    }
}

[[noreturn]] void Fail(LONG result, const std::wstring& path, std::string_view key) {
    throw RuntimeError(ErrorNumber::PathFileAccess,
                       "HKEY_CURRENT_USER\\" + ToUtf8(path) + "\\" + std::string(key) + ": " +
                           zv::win32::SystemMessage(HRESULT_FROM_WIN32(result)));
}

}  // namespace

std::wstring RegistrySettings::KeyPath(std::string_view application,
                                       std::string_view section) const {
    return root_ + L"\\" + ToWide(application) + L"\\" + ToWide(section);
}

std::string RegistrySettings::Get(std::string_view application, std::string_view section,
                                  std::string_view key, std::string_view fallback) const {
    HKEY handle = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, KeyPath(application, section).c_str(), 0, KEY_QUERY_VALUE,
                      &handle) != ERROR_SUCCESS) {
        return std::string(fallback);
    }
    const RegistryKey opened(handle);
    const auto value = ReadValue(opened.Get(), ToWide(key));
    return value ? TextOf(*value) : std::string(fallback);
}

void RegistrySettings::Save(std::string_view application, std::string_view section,
                            std::string_view key, std::string_view text) {
    const std::wstring path = KeyPath(application, section);
    HKEY handle = nullptr;
    LONG result = RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                  nullptr, &handle, nullptr);
    if (result != ERROR_SUCCESS) Fail(result, path, key);
    const RegistryKey opened(handle);
    const std::wstring stored = ToWide(text);
    result = RegSetValueExW(opened.Get(), ToWide(key).c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(stored.c_str()),
                            static_cast<DWORD>((stored.size() + 1) * sizeof(wchar_t)));
    if (result != ERROR_SUCCESS) Fail(result, path, key);
}

}  // namespace zv::resources::win32

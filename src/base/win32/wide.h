// The two conversions between the system's UTF-8 and Windows' UTF-16.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace zv::win32 {

/// A broken sequence becomes U+FFFD.
inline std::wstring ToWide(std::string_view utf8) {
    if (utf8.empty()) return {};
    const int bytes = static_cast<int>(utf8.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), units);
    return wide;
}

/// A lone surrogate becomes U+FFFD.
inline std::string ToUtf8(std::wstring_view wide) {
    if (wide.empty()) return {};
    // Most texts are short: one call into a buffer on the stack instead of a measuring call first.
    constexpr std::size_t kShort = 128;
    const int units = static_cast<int>(wide.size());
    if (wide.size() <= kShort) {
        char buffer[kShort * 3];
        const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, buffer,
                                               sizeof buffer, nullptr, nullptr);
        return std::string(buffer, static_cast<std::size_t>(length));
    }
    const int bytes =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

}  // namespace zv::win32

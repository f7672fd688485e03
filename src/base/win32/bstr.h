// An automation text that frees itself.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "base/win32/wide.h"

namespace zv::win32 {

/// The units of an automation text; null reads as empty.
inline std::wstring_view View(BSTR text) {
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}
inline std::string ToUtf8(BSTR text) {
    return ToUtf8(View(text));
}
/// An array of characters has no length in front of it, as an automation text has.
template <std::size_t Units>
std::string ToUtf8(wchar_t (&)[Units]) = delete;

/// A new automation text for the caller to free. Throws bad_alloc.
inline BSTR AllocateBstr(std::wstring_view text) {
    BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!result) throw std::bad_alloc();
    return result;
}
inline BSTR AllocateBstr(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    const int units =
        bytes == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    BSTR result = SysAllocStringLen(nullptr, static_cast<UINT>(units));
    if (!result) throw std::bad_alloc();
    if (units != 0) MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, result, units);
    return result;
}

class Bstr {
 public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text) : text_(AllocateBstr(text)) {}
    explicit Bstr(std::string_view utf8) : text_(AllocateBstr(utf8)) {}
    Bstr(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }
    std::wstring_view View() const { return win32::View(text_); }
    std::string Utf8() const { return ToUtf8(View()); }
    /// Hands the text to the caller.
    [[nodiscard]] BSTR Detach() { return std::exchange(text_, nullptr); }
    /// The address for a function that hands out a text; what was held is freed.
    BSTR* Put() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }

 private:
    BSTR text_ = nullptr;
};

}  // namespace zv::win32

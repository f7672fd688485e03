#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void ToWide(std::string_view text, std::wstring& buffer) {
    buffer.resize(text.size());  // UTF-16 never needs more units than UTF-8 bytes
    if (text.empty()) return;
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                          buffer.data(), static_cast<int>(buffer.size()));
    buffer.resize(static_cast<std::size_t>(units));
}

std::wstring ToWide(std::string_view text) {
    std::wstring wide;
    ToWide(text, wide);
    return wide;
}

std::string FromWide(std::wstring_view text) {
    if (text.empty()) return {};
    const int units = static_cast<int>(text.size());
    std::string narrow(text.size() * 3, '\0');
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(),
                                          static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(bytes));
    return narrow;
}

std::string WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int units = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return FromWide(std::wstring_view(text).substr(0, static_cast<std::size_t>(units)));
}

}  // namespace zv::forms::win32

#include <windows.h>

#include "platform/win32/machine.h"

namespace zv::platform::win32 {

int SystemAnsiCodePage::ByteWidth(char32_t codePoint) const {
    if (codePoint < 0x80) return 1;
    // No ANSI code page holds a character of the supplementary planes.
    if (codePoint > 0xFFFF) return 1;
    const auto unit = static_cast<wchar_t>(codePoint);
    char bytes[8];
    const int length =
        WideCharToMultiByte(CP_ACP, 0, &unit, 1, bytes, sizeof bytes, nullptr, nullptr);
    return length >= 2 ? 2 : 1;
}

}  // namespace zv::platform::win32

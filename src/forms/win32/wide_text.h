// Between the system's UTF-8 texts and the UTF-16 of Windows.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace zv::forms::win32 {

std::wstring ToWide(std::string_view text);
/// Into `buffer`, whose memory is used again from call to call.
void ToWide(std::string_view text, std::wstring& buffer);
std::string FromWide(std::wstring_view text);
std::string WindowText(HWND window);

}  // namespace zv::forms::win32

// Names for screen readers where a window's text does not say what it is.
#pragma once

#include <windows.h>

#include <string>

namespace zv::forms::win32 {

/// Does nothing where the system offers no such service.
void NameForScreenReaders(HWND window, const std::wstring& name);

}  // namespace zv::forms::win32

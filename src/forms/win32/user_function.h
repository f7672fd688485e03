// Functions of windows that came with later versions of the system.
#pragma once

#include <windows.h>

namespace zv::forms::win32 {

/// Null where the system has none of that name.
template <typename Function>
Function UserFunction(const char* name) noexcept {
    return reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

}  // namespace zv::forms::win32

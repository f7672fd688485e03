#include "forms/win32/screens.h"

#include "forms/win32/display.h"

namespace zv::forms::win32 {

RECT Screens::WorkAreaAt(HWND window) const {
    return win32::WorkAreaAt(window);
}

RECT Screens::WorkAreaAround(const RECT& place) const {
    return win32::WorkAreaAround(place);
}

int Screens::DpiOf(HWND window) const {
    return win32::DpiOf(window);
}

int Screens::DpiAround(const RECT& place) const {
    return win32::DpiAround(place);
}

}  // namespace zv::forms::win32

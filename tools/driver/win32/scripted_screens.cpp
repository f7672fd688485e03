#include "driver/win32/scripted_screens.h"

#include "forms/win32/display.h"

namespace zv::driver {
namespace {

forms::Rect FromNative(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top),
            static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

RECT ToNative(const forms::Rect& rect) {
    return {rect.left, rect.top, rect.Right(), rect.Bottom()};
}

}  // namespace

forms::Rect ScriptedScreens::PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return FromNative(place);
}

RECT ScriptedScreens::WorkAreaAt(HWND window) const {
    if (monitors) {
        const forms::Monitor& monitor =
            window ? monitors->Around(PlaceOf(window)) : monitors->Primary();
        return ToNative(monitor.workArea);
    }
    return workArea ? *workArea : Screens::WorkAreaAt(window);
}

RECT ScriptedScreens::WorkAreaAround(const RECT& place) const {
    if (monitors) return ToNative(monitors->Around(FromNative(place)).workArea);
    return workArea ? *workArea : Screens::WorkAreaAround(place);
}

int ScriptedScreens::DpiOf(HWND window) const {
    return monitors ? monitors->Around(PlaceOf(window)).dpi : Screens::DpiOf(window);
}

int ScriptedScreens::DpiAround(const RECT& place) const {
    if (monitors) return monitors->Around(FromNative(place)).dpi;
    return workArea ? forms::win32::SystemDpi() : Screens::DpiAround(place);
}

// Frames are drawn by the system, which knows nothing of these monitors.
int ScriptedScreens::FrameDpi(int dpi) const {
    return monitors ? forms::win32::SystemDpi() : Screens::FrameDpi(dpi);
}

forms::Size ScriptedScreens::Largest() const {
    if (!monitors) return Screens::Largest();
    const forms::Rect desktop = monitors->Desktop();
    return {desktop.width, desktop.height};
}

}  // namespace zv::driver

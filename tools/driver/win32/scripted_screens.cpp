#include "driver/win32/scripted_screens.h"

#include "forms/win32/display.h"

namespace zv::driver {

using forms::win32::FromNative;
using forms::win32::ToNative;

forms::Rect ScriptedScreens::PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    WINDOWPLACEMENT restored{};
    restored.length = sizeof restored;
    if (IsIconic(window) && GetWindowPlacement(window, &restored)) {
        place = restored.rcNormalPosition;
    }
    return FromNative(place);
}

RECT ScriptedScreens::WorkAreaAt(HWND window) const {
    if (monitors) {
        const forms::Monitor& monitor =
            window ? monitors->Around(PlaceOf(window)) : monitors->Primary();
        return ToNative(monitor.workArea);
    }
    return Screens::WorkAreaAt(window);
}

RECT ScriptedScreens::WorkAreaAround(const RECT& place) const {
    if (monitors) return ToNative(monitors->Around(FromNative(place)).workArea);
    return Screens::WorkAreaAround(place);
}

int ScriptedScreens::DpiOf(HWND window) const {
    return monitors ? monitors->Around(PlaceOf(window)).dpi : Screens::DpiOf(window);
}

int ScriptedScreens::DpiAround(const RECT& place) const {
    return monitors ? monitors->Around(FromNative(place)).dpi : Screens::DpiAround(place);
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

std::optional<forms::Rect> ScriptedScreens::MaximisedAt(HWND window) const {
    if (!monitors) return Screens::MaximisedAt(window);
    return monitors->Around(PlaceOf(window)).workArea;
}

}  // namespace zv::driver

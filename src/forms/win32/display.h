// The display's resolution and the system's font.
#pragma once

#include <windows.h>

#include <string_view>

#include "forms/geometry.h"
#include "forms/scale.h"
#include "forms/win32/handles.h"

namespace zv::forms::win32 {

/// The same for the system's rectangles.
class Scale : public forms::Scale {
 public:
    using forms::Scale::Scale;
    using forms::Scale::ToPixels;
    using forms::Scale::ToUnits;

    /// Edges are scaled, not widths, so that controls that touch still do.
    RECT ToPixels(const Rect& rect) const {
        return {ToPixels(rect.left), ToPixels(rect.top), ToPixels(rect.Right()),
                ToPixels(rect.Bottom())};
    }
    Rect ToUnits(const RECT& rect) const {
        return {ToUnits(rect.left), ToUnits(rect.top), ToUnits(rect.right - rect.left),
                ToUnits(rect.bottom - rect.top)};
    }
};

/// In the same pixels.
Rect FromNative(const RECT& rect);
RECT ToNative(const Rect& rect);

int SystemDpi();
int DpiOf(HWND window);
/// Of a window that is made at the corner of `place`, which is in pixels.
int DpiAround(const RECT& place);

/// What windows may cover of the monitor where `window` lies, in pixels; of the primary monitor for
/// null.
RECT WorkAreaAt(HWND window);
/// The same of the monitor that has most of a place, or is nearest to it.
RECT WorkAreaAround(const RECT& place);

/// The thickness of a window's scroll bar, in pixels.
int BarThickness(int dpi);

/// The font that the user has chosen for messages, at a resolution.
LOGFONTW MessageFont(int dpi);
/// That font. Where it has no Chinese characters of both scripts and the system has a
/// user-interface font with them, it is that one in the same size.
Font CreateUiFont(int dpi);
/// The same for one that the user could choose.
Font CreateUiFont(LOGFONTW wanted);

/// Lines are broken at line feeds; in pixels.
SIZE MeasureText(HFONT font, std::string_view text);

/// Frame around a client area, with the menu bar where there is one.
RECT OuterRect(const RECT& client, DWORD style, DWORD extendedStyle, bool menu, int dpi);

}  // namespace zv::forms::win32

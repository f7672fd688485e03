// The control's picture in a container that is being designed: its icon and its name.
#pragma once

#include <windows.h>

#include <string_view>

namespace zv::com {

/// Draws into `bounds` (logical units of `context`); leaves the context as it was.
void DrawDesignView(HDC context, const RECT& bounds, std::wstring_view name) noexcept;

/// HIMETRIC (0.01 mm) from pixels of the display and back.
SIZEL ToHimetric(SIZE pixels) noexcept;
SIZE ToPixels(SIZEL himetric) noexcept;

}  // namespace zv::com

// Chooses an entry of a window's menu bar the way a macro tool does.
#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <string_view>

namespace zv::demo {

/// The window of this thread that carries `name` in its property "zv.Name"; null when none does.
HWND FindNamedWindow(std::wstring_view name);

/// Chooses the first entry whose caption begins with one of these; false when there is none that
/// can be chosen.
bool ChooseMenuEntry(HWND window, std::span<const std::wstring> captions);

}  // namespace zv::demo

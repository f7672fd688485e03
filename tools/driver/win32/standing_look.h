// Looks at what stands before the windows with a message loop of its own: a box of the system, or
// the menus that are open.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "forms/dialogs.h"
#include "forms/win32/win32_backend.h"

namespace zv::driver {

/// Lets `ask` show one box and `look` see it when it waits for the user; the box is then cancelled.
/// Throws DriverError when no box came up, and what `look` throws.
void LookAtBox(forms::win32::Win32Backend& backend, const std::function<void(forms::Dialogs&)>& ask,
               const std::function<void(HWND)>& look);

/// A line for each part of a box that lies outside of it or across another one, or whose text has
/// no room. Empty for none.
std::vector<std::string> BoxFaults(HWND box);

/// The menus of this thread that are open, without the bar of a window.
std::vector<HWND> OpenMenus();

}  // namespace zv::driver

// A picture of a window as it stands on the screen.
#pragma once

#include <windows.h>

#include <filesystem>

namespace zv::driver {

/// Writes the window with its frame to a bitmap file, 32 bits a pixel. What lies over the window or
/// outside of the screen is in the picture as it is. Throws DriverError when the file cannot be
/// written.
void SaveWindowPicture(HWND window, const std::filesystem::path& file);

}  // namespace zv::driver

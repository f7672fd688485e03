// Finding windows of another process by the name that the system leaves on each ("zv.Name"), or by
// the text that they show.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zv::outside {

std::string Narrow(const std::wstring& text);
std::wstring Wide(const std::string& text);

/// The window property "zv.Name"; empty when there is none.
std::wstring NameOf(HWND window);
std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
/// Visible, and has that name or a title that holds it.
bool IsCalled(HWND window, const std::wstring& name);
DWORD ProcessOf(HWND window);
/// With the environment variable ZV_PROCESS, the number of a process, only those of that one.
std::vector<HWND> TopLevelWindows();

/// A visible top-level window whose name is `name` or whose title contains it; null when none.
HWND FindTop(const std::wstring& name);
/// "window" or "window.control"; a control is found by its name or, for buttons, by its caption.
/// Throws std::runtime_error when it is not there.
HWND FindPath(const std::wstring& path);

}  // namespace zv::outside

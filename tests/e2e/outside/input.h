// The keyboard and the mouse: what is sent here goes to whatever window has the foreground, the way
// that a user's keys and clicks go.
#pragma once

#include <windows.h>

#include <string>

namespace zv::outside {

/// Types characters, whatever the keyboard's layout.
void Write(const std::wstring& text);
/// Presses and releases a key: Enter, Tab, Escape, Space, Up, Down, Left, Right, Home, End, Delete,
/// Apps, F10, or one character; with "Shift+", "Ctrl+" or "Alt+" before it. Throws
/// std::runtime_error for any other name.
void PressKey(const std::wstring& name);
enum class MouseButton { Left, Right };

/// Clicks a point of the screen.
void ClickScreen(POINT at, MouseButton button = MouseButton::Left);
/// The window that has the keyboard in the foreground; null when none has.
HWND FocusWindow();

}  // namespace zv::outside

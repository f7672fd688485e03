// A procedure of ours before that of a native window.
//
// The system's own SetWindowSubclass finds what it keeps through a property of the window, and has
// to ask the window manager for it at each message. Here it is kept in this copy of this module,
// whose windows belong to one thread.
#pragma once

#include <windows.h>

namespace zv::forms::win32 {

class NativeControl;

/// Hands the messages of the window to the control; what it does not answer itself it passes on by
/// CallSubclassed.
using SubclassProcedure = LRESULT(CALLBACK*)(NativeControl& control, HWND window, UINT message,
                                             WPARAM wParam, LPARAM lParam) noexcept;

/// From here on the messages of `window`, which has no such procedure yet, go to `procedure`. It
/// ends with the window.
void Subclass(HWND window, NativeControl& control, SubclassProcedure procedure);

/// What the window does with the message by itself.
LRESULT CallSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Lets go of the windows of a thread that has ended.
void ForgetSubclasses();

}  // namespace zv::forms::win32

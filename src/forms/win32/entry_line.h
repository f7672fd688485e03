// A native entry of one line has it at the top, however high it is; beside a label it belongs into
// the middle. The room above and below is made part of the window's frame.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace zv::forms::win32 {

/// Has the frame of the entry reckoned anew, after its font or its first messages.
void PlaceEntryLine(HWND entry);

/// What an entry answers to `message`; nothing for the messages that leave the line where it is.
/// `native` does what the native window does with it. `reads`: the entry takes no typing.
std::optional<LRESULT> AnswerForEntryLine(HWND entry, HFONT font, bool reads, UINT message,
                                          WPARAM wParam, LPARAM lParam,
                                          const std::function<LRESULT()>& native);

}  // namespace zv::forms::win32

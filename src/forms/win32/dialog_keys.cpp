// Keys are reported to the form, which knows what they do. Dialogs leave them to their message
// loop; these windows often live in a loop that knows nothing of them.
#include "forms/win32/form_window.h"

namespace zv::forms::win32 {
namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

void Pass(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

void FormWindow::HandleKey(const MSG& message) {
    if (message.message == WM_SYSKEYDOWN) {
        const bool menuKey = message.wParam == VK_F10 && IsDown(VK_SHIFT);
        if (menuKey && ReportKey(message)) return;
        if (message.wParam == VK_MENU) {
            SendMessageW(Handle(), WM_CHANGEUISTATE,
                         MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
        }
        Pass(message);
        return;
    }
    if (message.message == WM_SYSCHAR) {
        if (!form_.UserAccessKey(static_cast<char32_t>(message.wParam))) Pass(message);
        return;
    }
    if (!ReportKey(message)) Pass(message);
}

bool FormWindow::ReportKey(const MSG& message) {
    NativeControl* native = nullptr;
    for (HWND at = message.hwnd; at && !native && at != Handle(); at = GetParent(at)) {
        native = Find(at);
    }
    if (!native || composing_) return false;
    if (message.wParam == VK_TAB) {
        SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    }
    const KeyEvent event{static_cast<int>(message.wParam), IsDown(VK_SHIFT), IsDown(VK_CONTROL),
                         native->ListOpen()};
    return form_.UserKey(native->Logical(), event);
}

}  // namespace zv::forms::win32

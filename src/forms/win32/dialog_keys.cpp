// Keys that work across controls: Tab, Enter, Escape, access keys, arrows among options. Dialogs
// leave them to their message loop; these windows often live in a loop that knows nothing of them.
#include <algorithm>
#include <cwctype>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

void Pass(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

const std::string* CaptionOf(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::Label: {
            const auto& label = static_cast<const Label&>(control);
            return label.UseMnemonic() ? &label.Caption() : nullptr;
        }
        case ControlKind::Frame:
            return &static_cast<const Frame&>(control).Caption();
        case ControlKind::CommandButton:
            return &static_cast<const CommandButton&>(control).Caption();
        case ControlKind::CheckBox:
            return &static_cast<const CheckBox&>(control).Caption();
        case ControlKind::OptionButton:
            return &static_cast<const OptionButton&>(control).Caption();
        default:
            return nullptr;
    }
}

// The letter behind a single "&", 0 when there is none.
wchar_t AccessKey(const std::string& caption) {
    const std::wstring text = ToWide(caption);
    for (std::size_t i = 0; i + 1 < text.size(); i++) {
        if (text[i] != L'&') continue;
        if (text[i + 1] != L'&') return static_cast<wchar_t>(std::towupper(text[i + 1]));
        i++;
    }
    return 0;
}

// A label or a frame stands for what comes behind it.
Control* StandsFor(const Form& form, Control& labelled) {
    const auto& controls = form.Controls();
    auto at = std::find(controls.begin(), controls.end(), &labelled);
    at = std::find_if(at, controls.end(), [](const Control* next) { return next->CanFocus(); });
    return at == controls.end() ? nullptr : *at;
}

void Press(Control& control) {
    if (!control.Owner().UserFocused(control)) return;
    switch (control.Kind()) {
        case ControlKind::CommandButton:
            static_cast<CommandButton&>(control).UserClick();
            break;
        case ControlKind::CheckBox:
            static_cast<CheckBox&>(control).UserClick();
            break;
        case ControlKind::OptionButton:
            static_cast<OptionButton&>(control).UserClick();
            break;
        default:
            break;
    }
}

bool PressAccessKey(const Form& form, wchar_t letter) {
    const auto wanted = static_cast<wchar_t>(std::towupper(letter));
    for (Control* control : form.Controls()) {
        const std::string* caption = CaptionOf(*control);
        if (!caption || !control->CanInteract() || AccessKey(*caption) != wanted) continue;
        const bool stands =
            control->Kind() == ControlKind::Label || control->Kind() == ControlKind::Frame;
        Control* target = stands ? StandsFor(form, *control) : control;
        if (!target) continue;
        Press(*target);
        return true;
    }
    // The captions of tabs too.
    for (Control* control : form.Controls()) {
        if (control->Kind() != ControlKind::TabPanel || !control->CanInteract()) continue;
        auto& tabs = static_cast<TabPanel&>(*control);
        for (int tab = 0; tab < tabs.Tabs(); tab++) {
            if (AccessKey(tabs.TabCaption(tab)) != wanted) continue;
            if (tabs.Owner().UserFocused(tabs)) tabs.UserSelect(tab);
            return true;
        }
    }
    return false;
}

void MoveAmongOptions(OptionButton& from, int direction) {
    std::vector<OptionButton*> group;
    for (Control* control : from.Owner().Controls()) {
        if (control->Kind() == ControlKind::OptionButton && control->Parent() == from.Parent() &&
            (control == &from || control->CanInteract())) {
            group.push_back(static_cast<OptionButton*>(control));
        }
    }
    const auto count = static_cast<int>(group.size());
    const auto at = static_cast<int>(std::find(group.begin(), group.end(), &from) - group.begin());
    Press(*group[static_cast<std::size_t>((at + direction + count) % count)]);
}

void TurnPage(const Control& inside, int direction) {
    for (Control* at = const_cast<Control*>(&inside); at; at = at->Parent()) {
        if (at->Kind() != ControlKind::TabPanel) continue;
        auto& tabs = static_cast<TabPanel&>(*at);
        const int target = (tabs.Tab() + direction + tabs.Tabs()) % tabs.Tabs();
        if (tabs.Owner().UserFocused(tabs)) tabs.UserSelect(target);
        return;
    }
}

int Direction(int code) {
    if (code == VK_UP || code == VK_LEFT) return -1;
    return code == VK_DOWN || code == VK_RIGHT ? +1 : 0;
}

}  // namespace

void FormWindow::HandleKey(const MSG& message) {
    if (message.message == WM_SYSKEYDOWN) {
        if (message.wParam == VK_MENU) {
            SendMessageW(Handle(), WM_CHANGEUISTATE,
                         MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
        }
        Pass(message);
        return;
    }
    if (message.message == WM_SYSCHAR) {
        if (!PressAccessKey(form_, static_cast<wchar_t>(message.wParam))) Pass(message);
        return;
    }
    NativeControl* native = nullptr;
    for (HWND at = message.hwnd; at && !native && at != Handle(); at = GetParent(at)) {
        native = Find(at);
    }
    if (!native || composing_) {
        Pass(message);
        return;
    }
    Control& control = native->Logical();
    KeyEvent event{static_cast<int>(message.wParam), IsDown(VK_SHIFT), IsDown(VK_CONTROL)};
    if (event.code != key::kTab) {
        control.UserKeyDown(event);
        if (gone_ || event.code == 0) return;
    }
    if (native->WantsKey(event.code)) {
        Pass(message);
        return;
    }
    if (event.code == key::kTab) {
        SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
        if (event.control) {
            TurnPage(control, event.shift ? -1 : +1);
        } else {
            form_.UserDialogKey(event);
        }
        return;
    }
    if (event.code == key::kEnter || event.code == key::kEscape) {
        // Where no button takes them, the native entry would only beep.
        form_.UserDialogKey(event);
        return;
    }
    if (control.Kind() == ControlKind::OptionButton && Direction(event.code) != 0) {
        MoveAmongOptions(static_cast<OptionButton&>(control), Direction(event.code));
        return;
    }
    Pass(message);
}

}  // namespace zv::forms::win32

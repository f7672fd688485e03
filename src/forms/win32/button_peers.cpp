#include "forms/win32/button_peers.h"

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeCommand::Create(HWND parent, int id) {
    const auto& button = static_cast<const CommandButton&>(Logical());
    const bool isDefault = button.Owner().defaultButton == &button;
    CreateNative(parent, id, WC_BUTTONW,
                 WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), 0,
                 ToWide(button.Marked(button.Caption())));
}

void NativeCommand::OnCommand(UINT code) {
    if (code == BN_CLICKED && !IsQuiet()) static_cast<CommandButton&>(Logical()).UserClick();
}

void NativeCommand::Mirror(Aspect aspect) {
    if (aspect != Aspect::Caption) return;
    const auto& button = static_cast<const CommandButton&>(Logical());
    SetWindowTextW(Handle(), ToWide(button.Marked(button.Caption())).c_str());
}

void NativeCommand::ShowAsDefault(bool isDefault) {
    Send(BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

std::optional<LRESULT> NativeCommand::OnMessage(UINT message, WPARAM, LPARAM) {
    // The focused button takes Enter from the default one.
    const CommandButton* standing = Logical().Owner().defaultButton;
    if ((message == WM_SETFOCUS || message == WM_KILLFOCUS) && standing && standing != &Logical()) {
        ShowAsDefault(message == WM_SETFOCUS);
        if (NativeControl* other = Owner().Find(*standing)) {
            static_cast<NativeCommand*>(other)->ShowAsDefault(message == WM_KILLFOCUS);
        }
    }
    return std::nullopt;
}

void NativeCheckBox::Create(HWND parent, int id) {
    const auto& box = static_cast<const CheckBox&>(Logical());
    CreateNative(parent, id, WC_BUTTONW, WS_TABSTOP | BS_CHECKBOX, 0,
                 ToWide(box.Marked(box.Caption())));
    Mirror(Aspect::Value);
}

void NativeCheckBox::OnCommand(UINT code) {
    if (code == BN_CLICKED && !IsQuiet()) static_cast<CheckBox&>(Logical()).UserClick();
}

void NativeCheckBox::Mirror(Aspect aspect) {
    const auto& box = static_cast<const CheckBox&>(Logical());
    if (aspect == Aspect::Caption)
        SetWindowTextW(Handle(), ToWide(box.Marked(box.Caption())).c_str());
    if (aspect == Aspect::Value) {
        Send(BM_SETCHECK, box.Checked() ? BST_CHECKED : BST_UNCHECKED);
    }
}

void NativeOption::Create(HWND parent, int id) {
    const auto& option = static_cast<const OptionButton&>(Logical());
    CreateNative(parent, id, WC_BUTTONW, WS_TABSTOP | BS_RADIOBUTTON, 0,
                 ToWide(option.Marked(option.Caption())));
    Mirror(Aspect::Value);
}

void NativeOption::OnCommand(UINT code) {
    if (code == BN_CLICKED && !IsQuiet()) static_cast<OptionButton&>(Logical()).UserClick();
}

void NativeOption::Mirror(Aspect aspect) {
    const auto& option = static_cast<const OptionButton&>(Logical());
    if (aspect == Aspect::Caption)
        SetWindowTextW(Handle(), ToWide(option.Marked(option.Caption())).c_str());
    if (aspect == Aspect::Value) {
        Send(BM_SETCHECK, option.Value() ? BST_CHECKED : BST_UNCHECKED);
    }
}

}  // namespace zv::forms::win32

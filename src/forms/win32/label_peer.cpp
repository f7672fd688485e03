#include "forms/win32/label_peer.h"

#include "forms/label.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeLabel::Create(HWND parent, int id) {
    const auto& label = static_cast<const Label&>(Logical());
    CreateNative(parent, id, WC_STATICW, SS_LEFT, 0, ToWide(label.Caption()));
}

void NativeLabel::Mirror(Aspect aspect) {
    if (aspect != Aspect::Caption) return;
    SetWindowTextW(Handle(), ToWide(static_cast<const Label&>(Logical()).Caption()).c_str());
}

}  // namespace zv::forms::win32

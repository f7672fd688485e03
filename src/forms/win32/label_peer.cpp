#include "forms/win32/label_peer.h"

#include "forms/label.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeLabel::Create(HWND parent, int id) {
    const auto& label = static_cast<const Label&>(Logical());
    const DWORD prefix = label.UseMnemonic() ? 0 : SS_NOPREFIX;
    CreateNative(parent, id, WC_STATICW, SS_LEFT | prefix, 0,
                 ToWide(label.Marked(label.Caption())));
}

void NativeLabel::Mirror(Aspect aspect) {
    if (aspect != Aspect::Caption) return;
    const auto& label = static_cast<const Label&>(Logical());
    const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
    const LONG_PTR wanted =
        label.UseMnemonic() ? style & ~LONG_PTR{SS_NOPREFIX} : style | LONG_PTR{SS_NOPREFIX};
    if (wanted != style) {
        SetWindowLongPtrW(Handle(), GWL_STYLE, wanted);
        InvalidateRect(Handle(), nullptr, TRUE);
    }
    SetWindowTextW(Handle(), ToWide(label.Marked(label.Caption())).c_str());
}

}  // namespace zv::forms::win32

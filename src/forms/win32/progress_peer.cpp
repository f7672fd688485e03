#include "forms/win32/progress_peer.h"

namespace zv::forms::win32 {

void NativeProgressBar::Create(HWND parent, int id) {
    CreateNative(parent, id, PROGRESS_CLASSW, 0);
    Send(PBM_SETRANGE32, 0, 100);
    Mirror(Aspect::Value);
}

void NativeProgressBar::Mirror(Aspect aspect) {
    if (aspect != Aspect::Value) return;
    constexpr LPARAM kStepMs = 50;
    const auto& percent = static_cast<const ProgressBar&>(Logical()).Percent();
    if (marquee_ != !percent) {
        marquee_ = !percent;
        LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
        style = marquee_ ? style | PBS_MARQUEE : style & ~static_cast<LONG_PTR>(PBS_MARQUEE);
        SetWindowLongPtrW(Handle(), GWL_STYLE, style);
        Send(PBM_SETMARQUEE, marquee_, kStepMs);
    }
    if (percent) Send(PBM_SETPOS, static_cast<WPARAM>(*percent));
}

}  // namespace zv::forms::win32

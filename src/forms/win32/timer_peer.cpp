#include "forms/win32/timer_peer.h"

namespace zv::forms::win32 {

void TimerPeer::Changed(Aspect aspect) {
    if (aspect != Aspect::Interval) return;
    window_->StopTimer(timer_);
    if (timer_.Running() && timer_.IntervalMs() > 0) {
        window_->SetTimer(timer_, timer_.IntervalMs());
    }
}

}  // namespace zv::forms::win32

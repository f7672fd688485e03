#include "forms/timer.h"

namespace zv::forms {

void Timer::SetRunning(bool running) {
    if (running == running_) return;
    running_ = running;
    Notify(Aspect::Interval);
}

void Timer::SetIntervalMs(int interval) {
    interval_ = interval;
    Notify(Aspect::Interval);
}

void Timer::UserTick() {
    if (!running_ || !onTimer) return;
    FromUser([this] { onTimer(); });
}

}  // namespace zv::forms

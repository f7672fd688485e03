#include "forms/timer.h"

#include "forms/form.h"

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
    Owner().Windows().FromTimer([this] { onTimer(); });
}

}  // namespace zv::forms

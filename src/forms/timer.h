#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace zv::forms {

/// Ticks on the user-interface thread while it is enabled and its window is realized.
class Timer : public Control {
 public:
    Timer(Form& form, std::string name, int intervalMs)
        : Control(form, ControlKind::Timer, std::move(name), nullptr, -1), interval_(intervalMs) {}
    bool Running() const { return running_; }
    void SetRunning(bool running);
    int IntervalMs() const { return interval_; }
    void SetIntervalMs(int interval);
    std::function<void()> onTimer;
    void UserTick();

 private:
    int interval_;
    bool running_ = false;
};

}  // namespace zv::forms

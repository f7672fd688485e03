#pragma once

#include <memory>

#include "forms/timer.h"
#include "forms/win32/form_window.h"

namespace zv::forms::win32 {

class TimerPeer : public ControlPeer {
 public:
    TimerPeer(FormWindow& window, Control& control)
        : window_(window.shared_from_this()), timer_(static_cast<Timer&>(control)) {
        Changed(Aspect::Interval);
    }
    void Changed(Aspect aspect) override;
    void TakeFocus() override {}

 private:
    std::shared_ptr<FormWindow> window_;
    Timer& timer_;
};

}  // namespace zv::forms::win32

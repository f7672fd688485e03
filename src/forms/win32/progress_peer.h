#pragma once

#include "forms/progress_bar.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeProgressBar : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;

 protected:
    void Mirror(Aspect aspect) override;

 private:
    bool marquee_ = false;
};

}  // namespace zv::forms::win32

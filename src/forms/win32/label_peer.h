#pragma once

#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeLabel : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;

 protected:
    void Mirror(Aspect aspect) override;
};

}  // namespace zv::forms::win32

#pragma once

#include "forms/up_down.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeUpDown : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    LRESULT OnNotify(NMHDR& header) override;
};

}  // namespace zv::forms::win32

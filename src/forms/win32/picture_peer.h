#pragma once

#include "forms/picture.h"
#include "forms/win32/native_control.h"
#include "forms/win32/window_class.h"

namespace zv::forms::win32 {

class NativePicture : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void ResolutionChanged() override;

 protected:
    void Mirror(Aspect aspect) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    void Paint();

    std::shared_ptr<WindowClass> class_;
    Bitmap bitmap_;  ///< the icon in the size last painted
    int bitmapSize_ = 0;
};

}  // namespace zv::forms::win32

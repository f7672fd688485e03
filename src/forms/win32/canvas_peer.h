#pragma once

#include "forms/canvas.h"
#include "forms/win32/native_control.h"
#include "forms/win32/window_class.h"

namespace zv::forms::win32 {

class NativeCanvas : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void ResolutionChanged() override;

 protected:
    void Mirror(Aspect aspect) override;
    void ApplyBounds() override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    Canvas& Area() const { return static_cast<Canvas&>(Logical()); }
    void Paint();
    void ShowScroll();
    void OnScroll(int bar, UINT action);
    void OnWheel(WPARAM wParam);

    std::shared_ptr<WindowClass> class_;
    int wheel_ = 0;  ///< turned by less than a notch
};

}  // namespace zv::forms::win32

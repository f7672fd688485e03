#pragma once

#include "forms/containers.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeTab : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    LRESULT OnNotify(NMHDR& header) override;
    void ResolutionChanged() override;

 protected:
    void Mirror(Aspect aspect) override;
    void ApplyBounds() override;

 private:
    TabPanel& Tabs() const { return static_cast<TabPanel&>(Logical()); }
    void ShowCaptions();
    void ShowTab();
    void SizeTabs();
};

}  // namespace zv::forms::win32

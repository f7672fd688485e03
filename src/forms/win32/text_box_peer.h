#pragma once

#include "forms/text_box.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeTextBox : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void OnCommand(UINT code) override;
    void ResolutionChanged() override;

 protected:
    void Mirror(Aspect aspect) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    TextBox& Box() const { return static_cast<TextBox&>(Logical()); }
    void ShowText();
    void ReportSelection();
};

}  // namespace zv::forms::win32

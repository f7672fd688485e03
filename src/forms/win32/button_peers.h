// The native buttons. None of them changes its own state: the control does when it is clicked, and
// the new state is mirrored.
#pragma once

#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeCommand : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void OnCommand(UINT code) override;

 protected:
    void Mirror(Aspect aspect) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    /// The border that says which button Enter presses.
    void ShowAsDefault(bool isDefault);
};

class NativeCheckBox : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void OnCommand(UINT code) override;

 protected:
    void Mirror(Aspect aspect) override;
};

class NativeOption : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void OnCommand(UINT code) override;

 protected:
    void Mirror(Aspect aspect) override;
};

}  // namespace zv::forms::win32

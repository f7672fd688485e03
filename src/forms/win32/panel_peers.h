// The native windows that hold others, and what is painted behind those.
#pragma once

#include "forms/containers.h"
#include "forms/win32/form_window.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativePanel : public NativeControl {
 public:
    NativePanel(FormWindow& window, Control& control);
    ~NativePanel() override;
    void Create(HWND parent, int id) override;
    /// On a page of tabs what the theme paints there, as a brush of the panel's size.
    HBRUSH PageBrush();
    bool IsPage() const;

 protected:
    void Mirror(Aspect) override {}
    void ApplyBounds() override;
    bool ShownByItself() const override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// Over the background.
    virtual void Paint(HDC) {}

 private:
    void MakePageBrush();

    std::shared_ptr<WindowClass> class_;
    Brush pageBrush_;
    SIZE pageBrushSize_{};
};

class NativeFrame : public NativePanel {
 public:
    using NativePanel::NativePanel;

 protected:
    void Mirror(Aspect aspect) override;
    void Paint(HDC dc) override;
};

/// The brush for the background of a window in the form, placed to continue its container's.
HBRUSH BackgroundOf(const FormWindow& form, HDC dc, HWND child);

}  // namespace zv::forms::win32

#pragma once

#include <string>
#include <vector>

#include "forms/lists.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeCombo : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    HWND FocusHandle() const override { return edit_ ? edit_ : Handle(); }
    void OnCommand(UINT code) override;
    bool ListOpen() const override;
    void CloseList() override;
    void ResolutionChanged() override;

 protected:
    void Mirror(Aspect aspect) override;
    void ApplyBounds() override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    ComboBox& Box() const { return static_cast<ComboBox&>(Logical()); }
    void ShowItems();
    void ShowText();
    void ShowLocked();
    /// `entry`: the height inside the frame, in pixels.
    void PlaceAround(int entry, const RECT& bounds);
    void PaintOverButton() const;

    HWND edit_ = nullptr;
    int frame_ = 6;  ///< around the entry, above and below together, in pixels
    std::vector<std::string> shown_;
};

}  // namespace zv::forms::win32

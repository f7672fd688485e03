// The texts that appear beside the mouse, in one native window for all controls of a form.
#pragma once

#include <windows.h>

#include <string>

#include "forms/win32/handles.h"

namespace zv::forms::win32 {

class FormWindow;

class ToolTips {
 public:
    explicit ToolTips(FormWindow& owner) : owner_(owner) {}
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;

    /// The text of a control's window; an empty one takes it away.
    void Set(HWND control, const std::wstring& text);
    std::wstring TextOf(HWND control) const;
    /// Takes the font and the width that fit the owner's resolution.
    void ResolutionChanged();
    /// The owner is being destroyed, and the native window with it.
    void Forget();

 private:
    void Make();

    FormWindow& owner_;
    Window handle_;
};

}  // namespace zv::forms::win32

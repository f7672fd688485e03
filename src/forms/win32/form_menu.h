// The native menus of a form: the bar with the visible roots, and what pops up.
#pragma once

#include <windows.h>

#include "forms/form.h"
#include "forms/menu.h"
#include "forms/win32/handles.h"

namespace zv::forms::win32 {

class FormMenu {
 public:
    explicit FormMenu(Form& form) : form_(form) {}

    /// Gives the window the bar for the present state of the items, or none.
    void ShowBar(HWND window);
    bool HasBar() const { return static_cast<bool>(bar_); }
    /// A menu with the children of `root`.
    Menu CreatePopup(const MenuItem& root) const;
    /// Null for an id that belongs to no item.
    MenuItem* Find(UINT id) const;
    UINT IdOf(const MenuItem& item) const;

 private:
    void Fill(HMENU menu, const std::vector<MenuItem*>& items) const;

    Form& form_;
    Menu bar_;
};

}  // namespace zv::forms::win32

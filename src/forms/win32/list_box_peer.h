#pragma once

#include <string>
#include <vector>

#include "forms/lists.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

class NativeListBox : public NativeControl {
 public:
    using NativeControl::NativeControl;
    void Create(HWND parent, int id) override;
    void OnCommand(UINT code) override;

 protected:
    void Mirror(Aspect aspect) override;

 private:
    ListBox& Box() const { return static_cast<ListBox&>(Logical()); }
    void ShowItems();

    std::vector<std::string> shown_;
};

}  // namespace zv::forms::win32

// Plays the user with real messages, and reads what the native windows show.
#pragma once

#include "forms/driver.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {

class NativeControl;

class Win32Driver : public Driver {
 public:
    /// Menus that pop up are closed without a choice as soon as the user would have to do
    /// something; an entry is chosen with Choose.
    explicit Win32Driver(Win32Backend& backend);

    void Click(Control& control) override;
    void Choose(MenuItem& item) override;
    void ClickNode(Control& tree, const std::string& key) override;
    void RightClickNode(Control& tree, const std::string& key) override;
    void Type(Control& control, const std::string& text) override;
    void Leave(Control& control) override;
    void Key(Control& control, int code) override;
    void ControlKey(Control& control, int code) override;
    void Pick(Control& list, int position) override;
    void SetDate(Control& picker, const std::optional<DateTime>& value) override;
    void Spin(Control& upDown, int direction) override;
    void Tick(Control& timer) override;
    void MoveMouse(Control& control, int xTwips, int yTwips) override;
    void RightPress(Control& control) override;
    void SelectTab(Control& tabs, int tab) override;
    void SelectRow(Control& grid, int row) override;
    void AddRow(Control& control, int row) override;
    void PressHeading(Control& control, int column) override;
    void ResizeColumn(Control& control, int column, int width) override;
    void Resize(Form& form, Size clientSize) override;
    void Close(Form& form) override;

    std::optional<std::string> Read(Control& control, const std::string& property,
                                    const std::vector<int>& arguments) override;
    std::string ReadCaption(Form& form) override;

 private:
    NativeControl& Native(Control& control) const;
    NativeControl& Usable(Control& control) const;
    void Activate(const Form& form) const;
    /// False when a validation kept the focus where it was.
    bool Focus(Control& control) const;
    void PressNode(Control& control, const std::string& key, UINT down, UINT up);

    Win32Backend& backend_;
};

/// What the native window of a control shows of a property, nothing when it shows no such thing.
std::optional<std::string> ReadNative(const NativeControl& native, const std::string& property,
                                      const std::vector<int>& arguments);

}  // namespace zv::forms::win32

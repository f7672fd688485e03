// Plays the user on controls that have no native windows.
#pragma once

#include "forms/driver.h"

namespace zv::forms::headless {

class HeadlessDriver : public Driver {
 public:
    void Click(Control& control) override;
    void Choose(MenuItem& item) override;
    void ClickNode(Control& control, const std::string& key) override;
    void RightClickNode(Control& control, const std::string& key) override;
    void Type(Control& control, const std::string& text) override;
    void Leave(Control& control) override;
    void Key(Control& control, int code) override;
    void ControlKey(Control& control, int code) override;
    void Pick(Control& control, int position) override;
    void SetDate(Control& control, const std::optional<DateTime>& value) override;
    void Spin(Control& control, int direction) override;
    void Tick(Control& control) override;
    void MoveMouse(Control& control, int xTwips, int yTwips) override;
    void RightPress(Control& control) override;
    void SelectTab(Control& control, int tab) override;
    void SelectRow(Control& control, int row) override;
    void AddRow(Control& control, int row) override;
    void PressHeading(Control& control, int column) override;
    void ResizeColumn(Control& control, int column, int width) override;
    void Resize(Form& form, Size clientSize) override;
    void Close(Form& form) override;

    std::optional<std::string> Read(Control& control, const std::string& property,
                                    const std::vector<int>& arguments) override;
    std::string ReadCaption(Form& form) override;
};

}  // namespace zv::forms::headless

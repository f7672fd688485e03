// Plays the user on controls that have no native windows.
#pragma once

#include "driver/driver.h"

namespace zv::driver {

class HeadlessDriver : public Driver {
 public:
    void Click(forms::Control& control) override;
    void Choose(forms::MenuItem& item) override;
    void ClickNode(forms::Control& control, const std::string& key) override;
    void RightClickNode(forms::Control& control, const std::string& key) override;
    void Type(forms::Control& control, const std::string& text) override;
    void PressKey(forms::Control& control, const forms::KeyEvent& key) override;
    void PressAccessKey(forms::Form& form, char letter) override;
    void Pick(forms::Control& control, int position) override;
    void SetDate(forms::Control& control, const std::optional<DateTime>& value) override;
    void Spin(forms::Control& control, int direction) override;
    void Tick(forms::Control& control) override;
    void MoveMouse(forms::Control& control, int xTwips, int yTwips) override;
    void RightPress(forms::Control& control) override;
    void SelectTab(forms::Control& control, int tab) override;
    void SelectRow(forms::Control& control, int row) override;
    void AddRow(forms::Control& control, int row) override;
    void PressHeading(forms::Control& control, int column) override;
    void ResizeColumn(forms::Control& control, int column, int width) override;
    void Resize(forms::Form& form, forms::Size inside) override;
    void Drag(forms::Form& form, forms::Position corner) override;
    void Close(forms::Form& form) override;
    void EndSession(forms::WindowSystem& windows) override;

    std::optional<std::string> Read(forms::Control& control, const std::string& property,
                                    const std::vector<int>& arguments) override;
    std::string ReadCaption(forms::Form& form) override;
    forms::Rect ReadPlace(forms::Form& form) override;
    int ReadDpi(forms::Form& form) override;
    std::vector<std::string> ReadFaults(forms::Form& form) override;
    void SavePicture(forms::Form& form, const std::filesystem::path& file) override;
    void SaveMenuPicture(forms::MenuItem& root, const std::filesystem::path& file) override;
    void SaveBoxPicture(const Question& ask, const std::filesystem::path& file) override;
    std::vector<std::string> ReadBoxFaults(const Question& ask) override;
};

}  // namespace zv::driver

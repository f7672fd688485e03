// Plays the user with real messages, and reads what the native windows show.
#pragma once

#include "driver/driver.h"
#include "driver/win32/played_backend.h"
#include "forms/win32/native_control.h"

namespace zv::driver {

class Win32Driver : public Driver {
 public:
    /// Menus that pop up are closed without a choice as soon as the user would have to do
    /// something; an entry is chosen with Choose.
    explicit Win32Driver(PlayedBackend& backend);

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

 private:
    forms::win32::NativeControl& Native(forms::Control& control) const;
    forms::win32::NativeControl& Usable(forms::Control& control) const;
    void Activate(const forms::Form& form) const;
    /// False when a validation kept the focus where it was.
    bool Focus(forms::Control& control) const;
    void PressNode(forms::Control& control, const std::string& key, UINT down, UINT up);

    PlayedBackend& backend_;
};

/// What the native window of a control shows of a property, nothing when it shows no such thing.
std::optional<std::string> ReadNative(const forms::win32::NativeControl& native,
                                      const std::string& property,
                                      const std::vector<int>& arguments);

}  // namespace zv::driver

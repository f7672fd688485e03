// Plays the user at a window and looks at what the user sees. There is one for each backend;
// scenarios and the contract tests are written against it, so they run on every backend.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "forms/control.h"
#include "forms/dialogs.h"
#include "forms/menu.h"
#include "forms/window_system.h"

namespace zv::driver {

/// Every act throws DriverError when a user could not do it: the control is not visible, has no
/// extent or lies where the window never shows it, is disabled, locked, or belongs to a window that
/// a modal one blocks.
class DriverError : public std::exception {
 public:
    explicit DriverError(std::string text) : text_(std::move(text)) {}
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    std::string text_;
};

class Driver {
 public:
    virtual ~Driver() = default;

    virtual void Click(forms::Control& control) = 0;
    virtual void Choose(forms::MenuItem& item) = 0;
    virtual void ClickNode(forms::Control& tree, const std::string& key) = 0;
    virtual void RightClickNode(forms::Control& tree, const std::string& key) = 0;
    /// Gives the control the focus, replaces its text by typing, leaves the focus there.
    virtual void Type(forms::Control& control, const std::string& text) = 0;
    /// Presses a key in the control, which takes the focus first.
    virtual void PressKey(forms::Control& control, const forms::KeyEvent& key) = 0;
    void Key(forms::Control& control, int code) { PressKey(control, {code}); }
    void ControlKey(forms::Control& control, int code) { PressKey(control, {code, false, true}); }
    void Leave(forms::Control& control) { Key(control, forms::key::kTab); }
    /// Presses Alt and a letter in the window.
    virtual void PressAccessKey(forms::Form& form, char letter) = 0;
    virtual void Pick(forms::Control& list, int position) = 0;
    virtual void SetDate(forms::Control& picker, const std::optional<DateTime>& value) = 0;
    virtual void Spin(forms::Control& upDown, int direction) = 0;
    virtual void Tick(forms::Control& timer) = 0;
    virtual void MoveMouse(forms::Control& control, int xTwips, int yTwips) = 0;
    virtual void RightPress(forms::Control& control) = 0;
    virtual void SelectTab(forms::Control& tabs, int tab) = 0;
    virtual void SelectRow(forms::Control& grid, int row) = 0;
    /// Selects a row beside those that are selected.
    virtual void AddRow(forms::Control& grid, int row) = 0;
    virtual void PressHeading(forms::Control& grid, int column) = 0;
    virtual void ResizeColumn(forms::Control& grid, int column, int width) = 0;
    virtual void Resize(forms::Form& form, forms::Size inside) = 0;
    /// Drags the window by its frame until its corner is there, in pixels of the desktop.
    virtual void Drag(forms::Form& form, forms::Position corner) = 0;
    virtual void Close(forms::Form& form) = 0;
    /// The user logs off: every window is asked, and when none objects all go.
    virtual void EndSession(forms::WindowSystem& windows) = 0;

    /// A property as the user sees it ("text", "caption", "value", "nodes", "cell" with two
    /// arguments, ...), nothing when the control has no such property.
    virtual std::optional<std::string> Read(forms::Control& control, const std::string& property,
                                            const std::vector<int>& arguments) = 0;
    virtual std::string ReadCaption(forms::Form& form) = 0;
    /// In pixels of the desktop, frame included.
    virtual forms::Rect ReadPlace(forms::Form& form) = 0;
    /// The resolution that the window is laid out for.
    virtual int ReadDpi(forms::Form& form) = 0;
    /// As LayoutFaults says, of what the user sees.
    virtual std::vector<std::string> ReadFaults(forms::Form& form) = 0;
    /// Writes a picture of the window, and of what an open menu covers beside it, to a bitmap file.
    /// Throws DriverError where there is no display or the file cannot be written.
    virtual void SavePicture(forms::Form& form, const std::filesystem::path& file) = 0;
    /// Opens a menu of the bar of its window, writes a picture of the window and closes the menu.
    /// Throws as SavePicture, and when the menu does not open.
    virtual void SaveMenuPicture(forms::MenuItem& root, const std::filesystem::path& file) = 0;
    /// A question as a box of the system would show it, which is then cancelled.
    using Question = std::function<void(forms::Dialogs&)>;
    /// Throws as SavePicture, and when no box comes up.
    virtual void SaveBoxPicture(const Question& ask, const std::filesystem::path& file) = 0;
    /// A line for each part of the box that lies badly or cuts its text; none without a display,
    /// where a box has no parts.
    virtual std::vector<std::string> ReadBoxFaults(const Question& ask) = 0;
};

}  // namespace zv::driver

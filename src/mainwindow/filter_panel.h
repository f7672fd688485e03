// The filter page: its start values, its text boxes and the WHERE text that they amount to.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "forms/control.h"
#include "mainwindow/filter_text.h"

namespace zv::forms {
class CheckBox;
class DatePicker;
class TextBox;
}  // namespace zv::forms

namespace zv::mainwindow {

class frmTaskMain;

class FilterPanel {
 public:
    explicit FilterPanel(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// What the filter stands on when the window opens in the present start mode.
    void SetStartValues();
    /// Moves the dates that nobody has touched since to the present day; true when one moved.
    bool FollowTheDay();
    /// As forms::Control::Remember.
    std::function<void()> Remember();
    FilterChoice Choice() const;
    std::string BuildItemFilter() const;
    /// False, after telling the user, when a text that the user typed cannot go into a statement.
    bool TextsAreFit();

    void chkJbr_Click();
    void chkUser_Click();

 private:
    static bool Follow(forms::DatePicker& picker, bool& touched, std::optional<DateTime> day);
    void FollowUser(const forms::CheckBox& box, forms::TextBox& text);
    void TextKeyDown(forms::KeyEvent& event);
    void ValidateText(const forms::TextBox& text, bool& cancel);

    frmTaskMain& window_;
    /// Changed since the start values, whatever they hold.
    bool fromTouched_ = false;
    bool untilTouched_ = false;
};

}  // namespace zv::mainwindow

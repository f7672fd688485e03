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
    /// Puts a company of the host's into its box; it may hold what the user may not type.
    void GiveCompany(const std::string& company);
    /// False when a text that the user typed cannot go into a statement; the user has been told
    /// then and the box has the focus.
    bool TextsAreFit();
    /// The first box with such a text, null when there is none.
    forms::TextBox* UnfitText();

    void chkJbr_Click();
    void chkUser_Click();

 private:
    static bool Follow(forms::DatePicker& picker, bool& touched, std::optional<DateTime> day);
    void FollowUser(const forms::CheckBox& box, forms::TextBox& text);
    bool IsGiven(const forms::TextBox& text) const;
    void TextKeyDown(forms::KeyEvent& event);
    void ValidateText(const forms::TextBox& text, bool& cancel);

    frmTaskMain& window_;
    /// Changed since the start values, whatever they hold.
    bool fromTouched_ = false;
    bool untilTouched_ = false;
    std::string givenCompany_;
};

}  // namespace zv::mainwindow

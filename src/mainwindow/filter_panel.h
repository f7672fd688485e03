// The filter page: its start values, its text boxes and the WHERE text that they amount to.
#pragma once

#include <string>

#include "forms/control.h"
#include "mainwindow/filter_text.h"

namespace zv::forms {
class CheckBox;
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
    FilterChoice Choice() const;
    std::string BuildItemFilter() const;
    /// False, after telling the user, when a text that the user typed cannot go into a statement.
    bool TextsAreFit();

    void chkJbr_Click();
    void chkUser_Click();

 private:
    void FollowUser(const forms::CheckBox& box, forms::TextBox& text);
    void TextKeyDown(forms::KeyEvent& event);
    void ValidateText(const forms::TextBox& text, bool& cancel);

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow

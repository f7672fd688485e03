// The ways to reach a customer: dial, mail, web page.
#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"
#include "forms/text_box.h"

namespace zv::mainwindow {

class frmTaskMain;

/// What is opened to write to a mail address: "mailTo:" in front of whatever the text is; empty
/// when there is none.
std::string MailTarget(std::string_view text);
/// What is opened to show a web page: the text, behind "http://" unless it begins with that in any
/// letter case; empty when there is no more than that.
std::string WebTarget(std::string_view text);
/// The keys to type into the dialer: none when the number is empty or 40 characters or longer.
std::string DialKeys(std::string_view text);

class ContactActions {
 public:
    explicit ContactActions(frmTaskMain& window) : window_(window) {}

    void Wire();
    void cmdTel_Click();
    void cmdEmail_Click();
    void cmdHttp_Click();
    /// Brings the card of the visit shown forward.
    void mnuGuestConnect_Click();
    /// Another card is shown: the box used before means nothing any more.
    void ForgetBox() { used_ = nullptr; }

 private:
    using Boxes = forms::ControlArray<forms::TextBox>;
    void Watch(Boxes& boxes);
    /// Of several numbers or addresses the one that the user was in last, else the first.
    std::string Chosen(const Boxes& boxes) const;
    void Open(const std::string& target);

    frmTaskMain& window_;
    const forms::TextBox* used_ = nullptr;
};

}  // namespace zv::mainwindow

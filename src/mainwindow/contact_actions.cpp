#include "mainwindow/contact_actions.h"

#include <algorithm>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {
namespace {

constexpr std::string_view kWebPrefix = "http://";

}  // namespace

std::string MailTarget(std::string_view text) {
    return text.empty() ? std::string() : "mailTo:" + std::string(text);
}

std::string WebTarget(std::string_view text) {
    if (text.empty() || text == kWebPrefix) return {};
    const bool prefixed = text::ToLower(text.substr(0, kWebPrefix.size())) == kWebPrefix;
    return (prefixed ? std::string() : std::string(kWebPrefix)) + std::string(text);
}

std::string DialKeys(std::string_view text) {
    constexpr std::size_t kTooLong = 40;
    if (text::Length(text) >= kTooLong) return {};
    // Enter, Tab and the like are no part of a number and would press the dialer's buttons.
    std::string keys(text);
    std::erase_if(keys, [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; });
    return keys;
}

void ContactActions::Wire() {
    Watch(window_.txtTel);
    Watch(window_.txtEmail);
    Watch(window_.txtHttp);
    window_.cmdTel.onClick = [this] { cmdTel_Click(); };
    window_.cmdEmail.onClick = [this] { cmdEmail_Click(); };
    window_.cmdHttp.onClick = [this] { cmdHttp_Click(); };
    window_.menus.mnuGuestConnect.onClick = [this] { mnuGuestConnect_Click(); };
}

void ContactActions::Watch(Boxes& boxes) {
    for (int i = 0; i < boxes.Count(); i++) {
        forms::TextBox& box = boxes[i];
        box.onGotFocus = [this, &box] { used_ = &box; };
    }
}

std::string ContactActions::Chosen(const Boxes& boxes) const {
    std::string first;
    for (int i = 0; i < boxes.Count(); i++) {
        const std::string& text = boxes[i].Text();
        if (&boxes[i] == used_ && !text.empty()) return text;
        if (first.empty()) first = text;
    }
    return first;
}

void ContactActions::cmdTel_Click() {
    platform::Shell& shell = window_.session.machine.shell;
    const std::string dialer = shell.DialerPath();
    if (dialer.empty()) return;
    shell.Start(dialer);
    const std::string keys = DialKeys(Chosen(window_.txtTel));
    if (!keys.empty()) shell.SendKeys(keys);
}

void ContactActions::cmdEmail_Click() {
    Open(MailTarget(Chosen(window_.txtEmail)));
}

void ContactActions::cmdHttp_Click() {
    Open(WebTarget(Chosen(window_.txtHttp)));
}

void ContactActions::Open(const std::string& target) {
    if (!target.empty()) window_.session.machine.shell.Open(target);
}

void ContactActions::mnuGuestConnect_Click() {
    if (window_.state.currentType != kGuest || window_.state.currentItemId == 0) return;
    window_.SSTab1.SetTab(kCardTab);
    // A card that is being picked for the visit stays.
    if (!window_.state.Editing()) window_.editor.ShowCardAgain();
}

}  // namespace zv::mainwindow

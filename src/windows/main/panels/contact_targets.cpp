#include "windows/main/panels/contact_targets.h"

#include "base/text.h"

namespace zv::windows {
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

}  // namespace zv::windows

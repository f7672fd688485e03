// What is handed to the system to reach a customer.
#pragma once

#include <string>
#include <string_view>

namespace zv::windows {

/// What is opened to write to a mail address: "mailTo:" in front of whatever the text is; empty
/// when there is none.
std::string MailTarget(std::string_view text);
/// What is opened to show a web page: the text, behind "http://" unless it begins with that in any
/// letter case; empty when there is no more than that.
std::string WebTarget(std::string_view text);
/// The keys to type into the dialer: none when the number is empty or 40 characters or longer.
std::string DialKeys(std::string_view text);

}  // namespace zv::windows

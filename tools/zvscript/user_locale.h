// The user's regional settings, as far as a program that asks for them would notice: date and
// number forms of the C and C++ libraries, and under Windows of the thread.
#pragma once

#include <locale>
#include <string>

namespace zv::script {

/// Puts everything back when it dies.
class UserLocale {
 public:
    UserLocale();
    ~UserLocale();
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    /// "zh-CN", "en-US" or "de-DE".
    static bool IsKnown(const std::string& name);
    void Select(const std::string& name);

 private:
    std::locale before_;
    std::string beforeC_;
    unsigned long beforeThread_ = 0;
};

}  // namespace zv::script

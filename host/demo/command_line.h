// What the program is started with.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zv::demo {

struct StartOptions {
    std::wstring data;
    std::wstring user = L"王小明";
    int language = 0;
    bool alert = false;  ///< runs the alert pass at start, as a host does at log-in
};

inline constexpr wchar_t kUsage[] =
    L"zvDemo.exe [--data 文件] [--user 姓名] [--language 0|1] [--alert]";

/// Nothing when an option is unknown or lacks its value.
std::optional<StartOptions> ReadOptions(const std::vector<std::wstring>& arguments);

}  // namespace zv::demo

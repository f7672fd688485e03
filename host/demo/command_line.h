// What the program is started with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "demo/demo_texts.h"

namespace zv::demo {

struct StartOptions {
    std::wstring data;
    std::wstring user = texts::kStandInUser;
    int language = 0;
    bool alert = false;  ///< runs the alert pass at start, as a host does at log-in
};

/// Nothing when an option is unknown or lacks its value.
std::optional<StartOptions> ReadOptions(const std::vector<std::wstring>& arguments);

}  // namespace zv::demo

// The WHERE text of the item list.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "mainwindow/main_state.h"

namespace zv::mainwindow {

/// What the filter controls say.
struct FilterChoice {
    std::array<bool, kItemKinds> kinds{true, true, true};
    std::optional<DateTime> from;
    std::optional<DateTime> until;
    std::string title;
    std::string content;
    std::string doer;
    std::string user;
    std::string guest;
    std::string company;
    int state = kAllStates;  ///< 0 to 2 or kNotYetDone; any other filters nothing
};

/// Begins with " Where 1=1". `dateLiteral` writes a date in the database's dialect. Without any
/// date the date clause is left out.
std::string BuildFilterText(const FilterChoice& choice,
                            const std::function<std::string(DateTime)>& dateLiteral);

}  // namespace zv::mainwindow

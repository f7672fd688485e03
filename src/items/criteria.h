// The statement of the query window.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "base/date_time.h"

namespace zv::items {

/// The criteria that are switched on; texts as typed.
struct AskCriteria {
    std::optional<std::string> user;
    std::optional<int> type;
    std::optional<std::string> title;
    std::optional<std::pair<DateTime, DateTime>> dates;
    std::optional<int> state;
    std::optional<std::string> doneMan;
};

/// `delimiter` brackets date literals.
std::string AskStatement(const AskCriteria& criteria, char delimiter);

}  // namespace zv::items

#include "windows/remind/acting_on_reminders.h"

#include <algorithm>

namespace zv::windows {

bool ActingOnReminders::Continue() {
    if (!goesOn_()) return false;
    const std::size_t end = std::min(next_ + inPiece_, dues_.size());
    const auto at = [this](std::size_t i) {
        return dues_.begin() + static_cast<std::ptrdiff_t>(i);
    };
    acted_ += act_(std::vector<reminders::Due>(at(next_), at(end)));
    next_ = end;
    return next_ < dues_.size();
}

std::optional<int> ActingOnReminders::Percent() const {
    constexpr std::size_t kWhole = 100;
    if (dues_.empty()) return {};
    return static_cast<int>(kWhole * next_ / dues_.size());
}

}  // namespace zv::windows

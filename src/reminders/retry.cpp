#include "reminders/retry.h"

#include <algorithm>

namespace zv::reminders {

int RetryMinutes(int failures) {
    constexpr int kLongest = 30;
    // Beyond this many doublings it is longer than the longest.
    constexpr int kMostDoublings = 5;
    return std::min(1 << std::clamp(failures - 1, 0, kMostDoublings), kLongest);
}

}  // namespace zv::reminders

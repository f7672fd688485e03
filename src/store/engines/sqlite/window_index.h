// The index that finds the items whose alert window meets a span of days.
//
// A window [start, end] meets the span when start <= last day and end >= first day. An index on one
// of the bounds alone reads, on average, half of all rows. Rows are therefore put into classes by
// the width of their window: within one class the start can lie at most that width before the first
// day, so each class needs one short range of the index, whatever the other windows are like.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zv::store::engines::sqlite {

inline constexpr std::string_view kWindowTable = "tTaskList";
inline constexpr std::string_view kWindowIndex = "tTaskList_window";

/// The class of a row as SQL over the columns of `alias` (quoted name with its point, or empty).
std::string WindowClass(std::string_view alias);

/// The statement that makes the index.
std::string WindowIndexStatement();

/// The columns of the index, in lower case.
std::set<std::string, std::less<>> WindowIndexColumns();

struct WindowClassRange {
    int windowClass = 0;
    std::string start;  ///< least start of a window that can reach the day, as SQL value
};

/// The range of each class that a window reaching `firstDay` (stored form) can start in.
std::vector<WindowClassRange> WindowRanges(std::string_view firstDay);

/// Statements compared without regard to blanks and letter case.
bool SameStatement(std::string_view a, std::string_view b);

}  // namespace zv::store::engines::sqlite

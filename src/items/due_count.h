// How many items are overdue, due today and in hand, and whose they are.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "items/due.h"
#include "store/database.h"

namespace zv::items {

struct DueOfDoer {
    std::string name;  ///< empty: nobody is to do them
    DueCount count;
};

struct DueCounts {
    DueCount all;
    /// Who has most overdue comes first, then who has most today.
    std::vector<DueOfDoer> doers;

    /// Of the doers from that position on.
    DueCount SumFrom(std::size_t first) const;
};

/// One statement over the items that meet a condition without its word, which may be empty.
std::string DueStatement(const std::string& condition, DateTime today,
                         const DateLiteral& dateLiteral);
/// Database errors reach the caller.
DueCounts CountDue(store::Database& database, const std::string& condition, DateTime today);

}  // namespace zv::items

// How many items are overdue, due today and in hand, and whose they are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "items/filter.h"
#include "store/database.h"

namespace zv::items {

struct DueCount {
    std::int64_t overdue = 0;  ///< in hand or not
    std::int64_t today = 0;    ///< likewise
    std::int64_t inHand = 0;   ///< on whatever day

    bool operator==(const DueCount&) const = default;
};

struct DueOfDoer {
    std::string name;  ///< empty: nobody is to do them
    DueCount count;
};

struct DueCounts {
    DueCount all;
    /// Who has most overdue comes first, then who has most today.
    std::vector<DueOfDoer> doers;
};

/// One statement over the items that meet a condition without its word, which may be empty.
std::string DueStatement(const std::string& condition, DateTime today,
                         const DateLiteral& dateLiteral);
/// Database errors reach the caller.
DueCounts CountDue(store::Database& database, const std::string& condition, DateTime today);

}  // namespace zv::items

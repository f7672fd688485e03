// Cards whose birthday falls in the coming days.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "store/database.h"

namespace zv::cards {

struct BirthdayCard {
    std::string code;
    std::string name;
    std::string company;
    std::string birthday;  ///< "1970-03-09"; one that is no date stands as it is stored
    std::string id;
    /// From the day of the list to the birthday; nothing for one that is no date.
    std::optional<int> daysLeft;
};

/// Days from `today` to the next birthday, 0 to 366. One on 29 February is the day after the 28th
/// in every year.
int DaysToBirthday(DateTime birthday, DateTime today);

/// The statement that finds the cards whose birthday falls between two days, both included, in
/// this year or, when `last` lies in a later one, in that year.
std::string BirthdayStatement(DateTime today, DateTime last);

/// The cards whose birthday falls between today and `days` days ahead, in the order of the days to
/// come; the days end with the calendar. Database errors reach the caller.
std::vector<BirthdayCard> Birthdays(store::Database& database, DateTime today, std::int16_t days);

}  // namespace zv::cards

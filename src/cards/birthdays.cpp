#include "cards/birthdays.h"

#include <algorithm>

namespace zv::cards {
namespace {

constexpr int kBehindAll = 1000;

// One birthday that is no date does not end the reminder of all others.
void ShowBirthday(const store::Value& value, DateTime today, BirthdayCard& card) {
    try {
        const DateTime birthday = value.ToDate();
        card.birthday = birthday.IsoDate();
        card.daysLeft = DaysToBirthday(birthday, today);
    } catch (const RuntimeError&) {
        // The next one may lie behind the end of the calendar.
        if (card.birthday.empty()) card.birthday = value.ToText();
    }
}

DateTime Anniversary(DateTime birthday, int year) {
    return DateTime(year, birthday.Month(), 1).AddDays(birthday.Day() - 1);
}

}  // namespace

int DaysToBirthday(DateTime birthday, DateTime today) {
    const DateTime day = today.Date();
    DateTime next = Anniversary(birthday, day.Year());
    if (next < day) next = Anniversary(birthday, day.Year() + 1);
    constexpr std::int64_t kSecondsOfDay = 86400;
    return static_cast<int>((next.Seconds() - day.Seconds()) / kSecondsOfDay);
}

std::string BirthdayStatement(DateTime today, DateTime last) {
    const auto anniversary = [](int year) {
        return "'" + std::to_string(year) +
               "-'+Right('0'+Ltrim(Month(Birthday)),2)+'-'+Right('0'+Ltrim(Day(Birthday)),2)";
    };
    const std::string from = " >= '" + today.IsoDate() + "'";
    const std::string until = " <= '" + last.IsoDate() + "')";
    const std::string thisYear = anniversary(today.Year());
    std::string sql = "select CompCode,name,compname,Birthday,fID from cards Where (" + thisYear +
                      from + "   AND  " + thisYear + until;
    if (last.Year() > today.Year()) {
        const std::string nextYear = anniversary(last.Year());
        sql += " Or (" + nextYear + from + " AND " + nextYear + until;
    }
    return sql;
}

std::vector<BirthdayCard> Birthdays(store::Database& database, DateTime today, std::int16_t days) {
    database.EnsureConnection();
    const DateTime last = std::min(today.AddDays(days), DateTime::LastDay());
    const auto rows = database.Open(BirthdayStatement(today, last));
    std::vector<BirthdayCard> cards;
    for (; !rows->Eof(); rows->MoveNext()) {
        BirthdayCard& card = cards.emplace_back();
        card.code = rows->Field(0).ToText();
        card.name = rows->Field(1).ToText();
        card.company = rows->Field(2).ToText();
        ShowBirthday(rows->Field(3), today, card);
        card.id = rows->Field(4).ToText();
    }
    rows->Close();
    std::stable_sort(cards.begin(), cards.end(), [](const auto& left, const auto& right) {
        return left.daysLeft.value_or(kBehindAll) < right.daysLeft.value_or(kBehindAll);
    });
    return cards;
}

}  // namespace zv::cards

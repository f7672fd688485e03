#include "cards/birthdays.h"

#include <algorithm>

namespace zv::cards {
namespace {

// One birthday that is no date does not end the reminder of all others.
std::string DayText(const store::Value& value) {
    try {
        return value.ToDate().IsoDate();
    } catch (const RuntimeError&) {
        return value.ToText();
    }
}

}  // namespace

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
    const DateTime last = std::min(today.AddDays(days), DateTime(9999, 12, 31));
    const auto rows = database.Open(BirthdayStatement(today, last));
    std::vector<BirthdayCard> cards;
    for (; !rows->Eof(); rows->MoveNext()) {
        cards.push_back({rows->Field(0).ToText(), rows->Field(1).ToText(), rows->Field(2).ToText(),
                         DayText(rows->Field(3)), rows->Field(4).ToText()});
    }
    rows->Close();
    return cards;
}

}  // namespace zv::cards

#include "items/due.h"

#include <stdexcept>

namespace zv::items {

Due DueOn(std::optional<DateTime> day, ItemState state, DateTime today) {
    if (!day || state == ItemState::Done || day->Date() > today.Date()) return Due::NotYet;
    return day->Date() < today.Date() ? Due::Overdue : Due::Today;
}

std::string DueCondition(Due due, DateTime today, const DateLiteral& dateLiteral) {
    const std::string open = "a.tDone<>" + std::to_string(Number(ItemState::Done));
    const std::string begin = dateLiteral(today.Date());
    switch (due) {
        case Due::Overdue:
            return open + " And a.taskTime<" + begin;
        case Due::Today:
            // Behind the last day of the calendar there is none to be written.
            return open + " And a.taskTime>=" + begin +
                   (today.Date() == DateTime::LastDay()
                        ? std::string()
                        : " And a.taskTime<" + dateLiteral(today.Date().AddDays(1)));
        case Due::NotYet:
            break;
    }
    throw std::logic_error("no condition says that an item is not due");
}

void DueCount::Add(std::optional<DateTime> day, ItemState state, DateTime now) {
    const Due due = DueOn(day, state, now);
    if (due == Due::Overdue) overdue++;
    if (due == Due::Today) today++;
    if (state == ItemState::InHand) inHand++;
}

DueCount& DueCount::operator+=(const DueCount& other) {
    overdue += other.overdue;
    today += other.today;
    inHand += other.inHand;
    return *this;
}

}  // namespace zv::items

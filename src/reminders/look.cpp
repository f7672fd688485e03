#include "reminders/look.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace zv::reminders {
namespace {

constexpr std::int64_t kSecondsOfMinute = 60;
constexpr std::int64_t kSecondsOfDay = 86400;

bool WasOverdueBefore(const Subject& subject, DateTime firstLook) {
    return subject.date && subject.date->Date() < firstLook.Date();
}

// The earliest of the moments to come, no later than the interval allows.
class NextLook {
 public:
    NextLook(DateTime now, int interval)
        : next_(now.AddSeconds(kSecondsOfMinute * std::max(interval, 1))) {}

    void At(DateTime moment) { next_ = std::min(next_, moment); }
    DateTime Get() const { return next_; }

 private:
    DateTime next_;
};

// Who put something off by a clock that was days ahead meant another time: the reminder would stay
// away until that clock's time has come.
bool WasGivenByAWrongClock(const Answer& answer, DateTime now) {
    return answer.until && answer.given && *answer.given > now.AddDays(1);
}

bool ComesFirst(const Due& a, const Due& b) {
    return std::tie(b.daysOverdue, a.subject.from, a.subject.date, a.subject.title,
                    a.subject.item) <
           std::tie(a.daysOverdue, b.subject.from, b.subject.date, b.subject.title, b.subject.item);
}

}  // namespace

int DaysOverdue(std::optional<DateTime> date, DateTime now) {
    if (!date || date->Date() >= now.Date()) return 0;
    return static_cast<int>((now.Date().Seconds() - date->Date().Seconds()) / kSecondsOfDay);
}

Look LookAt(const std::vector<Subject>& subjects, const std::vector<Answer>& answers,
            const Circumstances& circumstances) {
    const DateTime now = circumstances.now;
    std::map<Key, std::optional<DateTime>> answered;
    for (const Answer& answer : answers) {
        if (!WasGivenByAWrongClock(answer, now)) answered[answer.key] = answer.until;
    }

    Look look;
    NextLook next(now, circumstances.interval);
    for (const Subject& subject : subjects) {
        if (subject.state == items::ItemState::Done) continue;
        if (circumstances.whose == Whose::Own && !Concerns(subject, circumstances.user)) continue;
        if (WasOverdueBefore(subject, circumstances.firstLook)) continue;
        const auto answer = answered.find(KeyOf(subject));
        const bool isAnswered = answer != answered.end();
        if (isAnswered && !answer->second) continue;
        const DateTime from = isAnswered ? std::max(subject.from, *answer->second) : subject.from;
        if (from > now) {
            next.At(from);
            continue;
        }
        look.due.push_back({subject, DaysOverdue(subject.date, now)});
    }
    // How long something is overdue changes with the day.
    if (!look.due.empty()) next.At(now.Date().AddDays(1));
    std::sort(look.due.begin(), look.due.end(), ComesFirst);
    look.next = next.Get();
    return look;
}

}  // namespace zv::reminders

#include "windows/remind/due_words.h"

#include "resources/texts.h"

namespace zv::windows {
namespace {

using resources::RemindText;

constexpr std::int64_t kSecondsOfDay = 86400;

// "14:00"; empty at midnight, which stands for a day without a time.
std::string TimeOf(DateTime moment) {
    return moment == moment.Date() ? std::string() : moment.HourAndMinute();
}

}  // namespace

std::string DueWords(const reminders::Due& due, DateTime now, std::int16_t language) {
    const auto text = [language](RemindText id, const std::string& part = {}) {
        return resources::LoadText(id, language, part);
    };
    if (due.IsOverdue()) return text(RemindText::OverdueBy, std::to_string(due.daysOverdue));
    if (!due.subject.date) return text(RemindText::Anytime);
    const DateTime date = *due.subject.date;
    const std::int64_t days = (date.Date().Seconds() - now.Date().Seconds()) / kSecondsOfDay;
    const std::string time = TimeOf(date);
    if (days == 0) {
        return time.empty() ? text(RemindText::Today) : text(RemindText::TodayAt, time);
    }
    if (days == 1) {
        return time.empty() ? text(RemindText::Tomorrow) : text(RemindText::TomorrowAt, time);
    }
    return text(RemindText::InDays, std::to_string(days));
}

}  // namespace zv::windows

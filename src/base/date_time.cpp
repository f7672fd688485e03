#include "base/date_time.h"

#include <chrono>
#include <cmath>

#include "base/errors.h"

namespace zv {
namespace {

using namespace std::chrono;

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr sys_days kDayZero{year{1899} / December / 30};

std::int64_t FloorDay(std::int64_t value) {
    const std::int64_t day = value / kSecondsPerDay;
    return value % kSecondsPerDay < 0 ? day - 1 : day;
}

year_month_day Civil(std::int64_t secondsSince) {
    return year_month_day{kDayZero + days{FloorDay(secondsSince)}};
}

int SecondOfDay(std::int64_t secondsSince) {
    return static_cast<int>(secondsSince - FloorDay(secondsSince) * kSecondsPerDay);
}

// Reads exactly `count` digits at `position`.
bool ReadDigits(std::string_view text, std::size_t position, std::size_t count, int& value) {
    if (position + count > text.size()) return false;
    int read = 0;
    for (std::size_t i = position; i < position + count; i++) {
        if (text[i] < '0' || text[i] > '9') return false;
        read = read * 10 + (text[i] - '0');
    }
    value = read;
    return true;
}

// Lists show a date in every row, so dates are put together digit by digit. The last `count`
// digits of the value.
void AppendDigits(std::string& text, unsigned value, std::size_t count) {
    text.append(count, '0');
    for (std::size_t at = text.size(); count > 0; --count, value /= 10) {
        text[--at] = static_cast<char>('0' + value % 10);
    }
}

void AppendIsoDate(std::string& text, std::int64_t seconds) {
    const year_month_day day = Civil(seconds);
    AppendDigits(text, static_cast<unsigned>(static_cast<int>(day.year())), 4);
    text += '-';
    AppendDigits(text, static_cast<unsigned>(day.month()), 2);
    text += '-';
    AppendDigits(text, static_cast<unsigned>(day.day()), 2);
}

void AppendTime(std::string& text, std::int64_t seconds) {
    const auto second = static_cast<unsigned>(SecondOfDay(seconds));
    AppendDigits(text, second / 3600, 2);
    text += ':';
    AppendDigits(text, second / 60 % 60, 2);
    text += ':';
    AppendDigits(text, second % 60, 2);
}

}  // namespace

DateTime::DateTime(int year, int month, int day, int hour, int minute, int second) {
    if (!IsValidDate(year, month, day) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
        second < 0 || second > 59) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    const sys_days d{year_month_day{std::chrono::year{year},
                                    std::chrono::month{static_cast<unsigned>(month)},
                                    std::chrono::day{static_cast<unsigned>(day)}}};
    seconds_ = (d - kDayZero).count() * kSecondsPerDay + std::int64_t{hour} * 3600 +
               std::int64_t{minute} * 60 + second;
}

DateTime DateTime::FromAutomation(double value) {
    const double wholeDays = std::trunc(value);
    const double timeOfDay = std::abs(value - wholeDays);
    return DateTime(static_cast<std::int64_t>(wholeDays) * kSecondsPerDay +
                    std::llround(timeOfDay * static_cast<double>(kSecondsPerDay)));
}

std::optional<DateTime> DateTime::InCalendar(double automationDate) {
    constexpr double kBeforeFirst = -657435;
    constexpr double kBehindLast = 2958466;
    if (!(automationDate > kBeforeFirst && automationDate < kBehindLast)) return std::nullopt;
    const DateTime date = FromAutomation(automationDate);
    // The last half second of the calendar is rounded into the year behind.
    return date.Date() <= LastDay() ? std::optional(date) : std::nullopt;
}

double DateTime::ToAutomation() const {
    const std::int64_t day = FloorDay(seconds_);
    const double timeOfDay =
        static_cast<double>(seconds_ - day * kSecondsPerDay) / static_cast<double>(kSecondsPerDay);
    const auto wholeDays = static_cast<double>(day);
    return day < 0 ? wholeDays - timeOfDay : wholeDays + timeOfDay;
}

std::optional<DateTime> DateTime::Parse(std::string_view text) {
    int y = 0;
    int mo = 0;
    int d = 0;
    int h = 0;
    int mi = 0;
    int s = 0;
    const auto has = [&](std::size_t at, char c) { return at < text.size() && text[at] == c; };
    if (!ReadDigits(text, 0, 4, y) || !has(4, '-') || !ReadDigits(text, 5, 2, mo) || !has(7, '-') ||
        !ReadDigits(text, 8, 2, d) || !IsValidDate(y, mo, d)) {
        return std::nullopt;
    }
    if (text.size() > 10) {
        if ((!has(10, ' ') && !has(10, 'T')) || !ReadDigits(text, 11, 2, h) || !has(13, ':') ||
            !ReadDigits(text, 14, 2, mi) || h > 23 || mi > 59) {
            return std::nullopt;
        }
        if (text.size() > 16 &&
            (!has(16, ':') || !ReadDigits(text, 17, 2, s) || s > 59 || text.size() > 19)) {
            return std::nullopt;
        }
    }
    return DateTime(y, mo, d, h, mi, s);
}

bool DateTime::IsValidDate(int year, int month, int day) {
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= DaysInMonth(year, month);
}

int DateTime::DaysInMonth(int year, int month) {
    const year_month_day_last last{
        std::chrono::year{year}, month_day_last{std::chrono::month{static_cast<unsigned>(month)}}};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

int DateTime::Year() const {
    return static_cast<int>(Civil(seconds_).year());
}
int DateTime::Month() const {
    return static_cast<int>(static_cast<unsigned>(Civil(seconds_).month()));
}
int DateTime::Day() const {
    return static_cast<int>(static_cast<unsigned>(Civil(seconds_).day()));
}
int DateTime::Hour() const {
    return SecondOfDay(seconds_) / 3600;
}
int DateTime::Minute() const {
    return SecondOfDay(seconds_) / 60 % 60;
}
int DateTime::Second() const {
    return SecondOfDay(seconds_) % 60;
}

int DateTime::Weekday() const {
    return static_cast<int>(weekday{kDayZero + days{FloorDay(seconds_)}}.c_encoding()) + 1;
}

DateTime DateTime::Date() const {
    return DateTime(FloorDay(seconds_) * kSecondsPerDay);
}

std::string DateTime::IsoDate() const {
    std::string text;
    AppendIsoDate(text, seconds_);
    return text;
}

std::string DateTime::UsDate() const {
    const year_month_day day = Civil(seconds_);
    std::string text;
    AppendDigits(text, static_cast<unsigned>(day.month()), 2);
    text += '/';
    AppendDigits(text, static_cast<unsigned>(day.day()), 2);
    text += '/';
    AppendDigits(text, static_cast<unsigned>(static_cast<int>(day.year())), 4);
    return text;
}

std::string DateTime::IsoDateTime() const {
    std::string text;
    text.reserve(19);
    AppendIsoDate(text, seconds_);
    text += ' ';
    AppendTime(text, seconds_);
    return text;
}

std::string DateTime::HourAndMinute() const {
    constexpr std::size_t kMinutes = 5;
    std::string text;
    AppendTime(text, seconds_);
    return text.substr(0, kMinutes);
}

std::string DateTime::ShortIso() const {
    std::string text = IsoDate();
    if (*this == Date()) return text;
    text += 'T';
    AppendTime(text, seconds_);
    return text;
}

}  // namespace zv

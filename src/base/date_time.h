// A calendar date with a time of day, to the second.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// Seconds since 1899-12-30 00:00:00, the day that automation dates count from. Years 100 to 9999.
class DateTime {
 public:
    constexpr DateTime() = default;
    constexpr explicit DateTime(std::int64_t seconds) : seconds_(seconds) {}
    /// Month 1..12, day 1..31; throws error 5 when there is no such date or time.
    DateTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

    /// From an automation date (days, the fraction is the time of day even before 1899-12-30).
    static DateTime FromAutomation(double value);
    /// The same; nothing for what is no number or lies outside the years 100 to 9999.
    static std::optional<DateTime> InCalendar(double automationDate);
    /// 9999-12-31: no day begins behind it.
    static DateTime LastDay() { return DateTime(9999, 12, 31); }
    double ToAutomation() const;

    /// Reads "YYYY-MM-DD", optionally followed by a blank or "T" and "HH:MM" or "HH:MM:SS".
    static std::optional<DateTime> Parse(std::string_view text);
    static bool IsValidDate(int year, int month, int day);
    static int DaysInMonth(int year, int month);

    int Year() const;
    int Month() const;
    int Day() const;
    int Hour() const;
    int Minute() const;
    int Second() const;
    /// 1 = Sunday .. 7 = Saturday.
    int Weekday() const;

    /// The same day at midnight.
    DateTime Date() const;
    DateTime AddDays(int days) const { return DateTime(seconds_ + 86400LL * days); }
    DateTime AddSeconds(std::int64_t seconds) const { return DateTime(seconds_ + seconds); }
    std::int64_t Seconds() const { return seconds_; }

    std::string IsoDate() const;      ///< "2003-03-07"
    std::string UsDate() const;       ///< "03/07/2003", the form of date literals
    std::string IsoDateTime() const;  ///< "2003-03-07 10:00:00", the form of stored dates
    /// "2003-03-07" at midnight, "2003-03-07T10:00:00" otherwise.
    std::string ShortIso() const;
    std::string HourAndMinute() const;  ///< "10:00"

    auto operator<=>(const DateTime&) const = default;

 private:
    std::int64_t seconds_ = 0;
};

}  // namespace zv

// The rules that a plan must satisfy before it is saved, as functions of what was entered. They
// know no window and no database; the caller shows what they answer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plans/plan.h"

namespace zv::plans {

inline constexpr std::int16_t kMaximumTextBytes = 50;
/// The greatest number by which a plan can be opened again.
inline constexpr int kMaximumTaskId = 32767;
inline constexpr int kMaximumCircleValue = 999;
inline constexpr int kMaximumTypeValue = 99;
/// Between the years of the begin and the end.
inline constexpr int kMaximumYears = 5;

enum class PlanField {
    TaskID,
    Title,
    Begin,
    End,
    CircleType,
    CircleValue,
    Month,
    Day,
    Week,
    TypeValue,
    SetMan,
    DoneMan,
    Content,
};

/// A plan as it is entered: numbers are still the texts of their boxes.
struct PlanEntry {
    std::string taskId;
    std::string title;
    DateTime begin;
    DateTime end;
    int circleType = circle::kMonthly;  ///< position in the kind list, -1 none
    std::string circleValue;
    std::string month;
    std::string day;
    int week = 1;  ///< position in the weekday list, -1 none
    int type = side::kAhead;
    std::string typeValue;
    std::string setMan;
    std::string doneMan;
    std::string content;
    bool operator==(const PlanEntry&) const = default;
};

/// Why an entry is refused: catalogue ids whose texts make up the message, one behind the other,
/// and the field to look at.
struct Refusal {
    PlanField field;
    std::vector<std::int16_t> message;
    bool operator==(const Refusal&) const = default;
};

/// The message for a text with which a field may not be left, 0 when it may: a single quote (131,
/// in every checked field), a text that is not a number (130), a number beyond the field's range
/// (140). Content takes any text.
std::int16_t CheckFieldOnLeaving(PlanField field, std::string_view text);
/// The same for the two dates: a begin behind the end (119), an end before the begin (120). Days
/// are compared, not times.
std::int16_t CheckDateOnLeaving(PlanField field, DateTime begin, DateTime end);
/// Fields whose text is cut to kMaximumTextBytes when they are left.
bool IsCutOnLeaving(PlanField field);

/// The first rule that the confirmed entry breaks, in the order of the rules.
std::optional<Refusal> CheckEntry(const PlanEntry& entry);
/// An empty setter is asked about: anybody may then change or delete the plan.
bool AsksForSetter(const PlanEntry& entry);

/// The least number of days between two occurrences, a year taken as 365 days and a month as 28.
/// `circleType` is one of circle.
double PeriodInDays(int circleType, double circleValue);
/// Whether the alert windows of neighbouring occurrences run into each other.
bool WindowsOverlap(int circleType, double circleValue, int type, double typeValue);

/// What the database holds when a plan is saved.
struct PlansPresent {
    bool numberExists = false;    ///< a plan has the entered number
    bool titleOfAnother = false;  ///< another plan has the entered title
};
/// `edited`: number of the plan that is being changed, 0 for a new one.
std::optional<Refusal> CheckUniqueness(std::int32_t number, std::int32_t edited,
                                       const PlansPresent& present);

/// The plan of an entry that passed CheckEntry. Numbers are rounded to whole ones; throws error 6
/// when one does not fit its field.
Plan MakePlan(const PlanEntry& entry);
/// The entry that shows a plan.
PlanEntry EntryOf(const Plan& plan);
/// The first rule that a plan breaks which is joined from what several users entered: those of a
/// confirmed entry, then those of fields that are left.
std::optional<Refusal> CheckJoined(const Plan& plan);

}  // namespace zv::plans

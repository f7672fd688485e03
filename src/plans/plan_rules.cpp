#include "plans/plan_rules.h"

#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "items/entry_text.h"
#include "resources/text_ids.h"

namespace zv::plans {
namespace {

// The number that a text is saved as, before it is fitted into its field: 0 for none.
double WholeNumber(std::string_view text) {
    return std::nearbyint(number::Parse(text).value_or(0));
}

bool IsBlank(std::string_view text) {
    return text::Trim(text).empty();
}

bool Within(std::string_view text, int first, int last) {
    const double value = WholeNumber(text);
    return value >= first && value <= last;
}

std::optional<int> UpperBound(PlanField field) {
    switch (field) {
        case PlanField::TaskID:
            return kMaximumTaskId;
        case PlanField::CircleValue:
            return kMaximumCircleValue;
        case PlanField::Day:
            return 31;
        case PlanField::Month:
            return 12;
        case PlanField::TypeValue:
            return kMaximumTypeValue;
        default:
            return {};
    }
}

// As it was typed: 999.4 is more than 999, though it would be saved as that.
bool Exceeds(PlanField field, std::string_view text) {
    return number::Parse(text).value_or(0) > UpperBound(field).value_or(0);
}

std::optional<Refusal> CheckDay(const PlanEntry& entry) {
    const bool used = entry.circleType == circle::kYearly || entry.circleType == circle::kMonthly;
    if (!used || Within(entry.day, 1, 31)) return {};
    return Refusal{PlanField::Day, {text_id::kDate, text_id::kWrongEntry}};
}

std::optional<Refusal> CheckRecurrence(const PlanEntry& entry) {
    if (entry.circleType < circle::kYearly || entry.circleType > circle::kWeekly) {
        return Refusal{PlanField::CircleType, {text_id::kSchedule, text_id::kWrongEntry}};
    }
    if (entry.circleType == circle::kWeekly && (entry.week < 0 || entry.week > 6)) {
        return Refusal{PlanField::Week, {text_id::kSchedule, text_id::kWrongEntry}};
    }
    if (entry.circleType == circle::kYearly && !Within(entry.month, 1, 12)) {
        return Refusal{PlanField::Month, {text_id::kMonths, text_id::kWrongEntry}};
    }
    return CheckDay(entry);
}

// Digits only, and not nothing but zeros.
bool IsTaskNumber(std::string_view text) {
    const std::string_view digits = text::Trim(text);
    return std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }) &&
           digits.find_first_not_of('0') != std::string_view::npos;
}

}  // namespace

std::int16_t CheckFieldOnLeaving(PlanField field, std::string_view text) {
    switch (field) {
        case PlanField::Title:
        case PlanField::SetMan:
        case PlanField::DoneMan:
            return items::WhyRefused(text, false);
        case PlanField::TaskID:
        case PlanField::CircleValue:
        case PlanField::Month:
        case PlanField::Day:
        case PlanField::TypeValue:
            break;
        default:
            return 0;
    }
    if (const std::int16_t message = items::WhyRefused(text, true)) return message;
    const std::optional<int> bound = UpperBound(field);
    if (!bound) return 0;
    // The other numbers are asked for their lower bound when the plan is confirmed; a negative
    // width would pass there.
    const bool tooSmall = field == PlanField::TypeValue && WholeNumber(text) < 0;
    return Exceeds(field, text) || tooSmall ? text_id::kBeyondRange : std::int16_t{0};
}

std::int16_t CheckDateOnLeaving(PlanField field, DateTime begin, DateTime end) {
    if (begin.Date() <= end.Date()) return 0;
    return field == PlanField::Begin ? text_id::kBeginAfterEnd : text_id::kEndBeforeBegin;
}

bool IsCutOnLeaving(PlanField field) {
    return field == PlanField::Title || field == PlanField::SetMan || field == PlanField::DoneMan;
}

std::optional<Refusal> CheckEntry(const PlanEntry& entry) {
    if (auto refusal = CheckRecurrence(entry)) return refusal;
    if (WindowsOverlap(entry.circleType, WholeNumber(entry.circleValue), entry.type,
                       WholeNumber(entry.typeValue))) {
        return Refusal{PlanField::TypeValue, {text_id::kWindowsOverlap}};
    }
    if (entry.end.Year() - entry.begin.Year() > kMaximumYears) {
        return Refusal{PlanField::End, {text_id::kMoreThanFiveYears}};
    }
    if (IsBlank(entry.title))
        return Refusal{PlanField::Title, {text_id::kTitle, text_id::kMustNotBeEmpty}};
    if (!IsTaskNumber(entry.taskId)) return Refusal{PlanField::TaskID, {text_id::kNumberIsNone}};
    if (Exceeds(PlanField::TaskID, entry.taskId)) {
        return Refusal{PlanField::TaskID, {text_id::kTaskNumber, text_id::kBeyondRange}};
    }
    if (WholeNumber(entry.circleValue) == 0)
        return Refusal{PlanField::CircleValue, {text_id::kStepIsZero}};
    if (Exceeds(PlanField::CircleValue, entry.circleValue)) {
        return Refusal{PlanField::CircleValue, {text_id::kSchedule, text_id::kBeyondRange}};
    }
    if (IsBlank(entry.typeValue)) return Refusal{PlanField::TypeValue, {text_id::kWidthIsEmpty}};
    return {};
}

double PeriodInDays(int circleType, double circleValue) {
    constexpr int kDays[] = {365, 28, 1, 7};
    return circleValue * kDays[circleType];
}

bool WindowsOverlap(int circleType, double circleValue, int type, double typeValue) {
    const double needed = type == side::kBoth ? 2 * typeValue : typeValue;
    return PeriodInDays(circleType, circleValue) < needed;
}

bool AsksForSetter(const PlanEntry& entry) {
    return IsBlank(entry.setMan);
}

std::optional<Refusal> CheckUniqueness(std::int32_t number, std::int32_t edited,
                                       const PlansPresent& present) {
    const bool isEdited = edited != 0 && number == edited;
    // Another number would move the change to another plan.
    if (present.numberExists && !isEdited) {
        return Refusal{PlanField::TaskID, {text_id::kTaskNumber, text_id::kExistsAlready}};
    }
    if (!present.numberExists && edited != 0) {
        return Refusal{PlanField::TaskID, {text_id::kTaskNumber, text_id::kExistsNoMore}};
    }
    if (present.titleOfAnother)
        return Refusal{PlanField::Title, {text_id::kTitle, text_id::kExistsNoMore}};
    return {};
}

Plan MakePlan(const PlanEntry& entry) {
    const auto toInt16 = [](std::string_view text) { return number::ToInt16(WholeNumber(text)); };
    Plan plan;
    plan.taskId = number::ToInt32(WholeNumber(entry.taskId));
    plan.title = text::Trim(entry.title);
    plan.begin = entry.begin;
    plan.end = entry.end;
    plan.circleType = entry.circleType;
    plan.circleValue = toInt16(entry.circleValue);
    plan.month = toInt16(entry.month);
    plan.day = toInt16(entry.day);
    plan.week = entry.week;
    plan.type = entry.type;
    plan.typeValue = toInt16(entry.typeValue);
    plan.setMan = text::Trim(entry.setMan);
    plan.doneMan = text::Trim(entry.doneMan);
    plan.content = entry.content;
    return plan;
}

PlanEntry EntryOf(const Plan& plan) {
    PlanEntry entry;
    entry.taskId = std::to_string(plan.taskId);
    entry.title = plan.title;
    entry.begin = plan.begin;
    entry.end = plan.end;
    entry.circleType = plan.circleType;
    entry.circleValue = std::to_string(plan.circleValue);
    entry.month = std::to_string(plan.month);
    entry.day = std::to_string(plan.day);
    entry.week = plan.week;
    entry.type = plan.type;
    entry.typeValue = std::to_string(plan.typeValue);
    entry.setMan = plan.setMan;
    entry.doneMan = plan.doneMan;
    entry.content = plan.content;
    return entry;
}

std::optional<Refusal> CheckJoined(const Plan& plan) {
    const PlanEntry entry = EntryOf(plan);
    if (auto refusal = CheckEntry(entry)) return refusal;
    if (const std::int16_t message = CheckFieldOnLeaving(PlanField::TypeValue, entry.typeValue)) {
        return Refusal{PlanField::TypeValue, {text_id::kAlertRange, message}};
    }
    if (const std::int16_t message = CheckDateOnLeaving(PlanField::End, plan.begin, plan.end)) {
        return Refusal{PlanField::End, {message}};
    }
    return {};
}

}  // namespace zv::plans

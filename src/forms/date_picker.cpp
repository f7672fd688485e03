#include "forms/date_picker.h"

#include "base/errors.h"

namespace zv::forms {

void DatePicker::SetMayBeEmpty(bool mayBeEmpty) {
    mayBeEmpty_ = mayBeEmpty;
    value_ = mayBeEmpty ? std::optional<DateTime>() : DateTime();
}

void DatePicker::SetValue(std::optional<DateTime> value) {
    const bool valid =
        value ? value->Year() >= kFirstYear && value->Year() <= kLastYear : mayBeEmpty_;
    if (!valid) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    if (value == value_) return;
    value_ = value;
    Notify(Aspect::Value);
    if (onChange) onChange();
}

void DatePicker::UserPick(std::optional<DateTime> value) {
    FromUser([&] { SetValue(value); });
}

void DatePicker::UserPickDay(DateTime day) {
    const std::int64_t timeOfDay = value_ ? value_->Seconds() - value_->Date().Seconds() : 0;
    UserPick(day.Date().AddSeconds(timeOfDay));
}

std::function<void()> DatePicker::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Value}, value_);
}

}  // namespace zv::forms

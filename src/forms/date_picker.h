#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "forms/control.h"

namespace zv::forms {

enum class DateFormat {
    Date,      ///< yyyy-mm-dd
    DateTime,  ///< yyyy-mm-dd hh:mm
    LongDate,  ///< the user's long form
};

class DatePicker : public Control {
 public:
    /// Years that a picker can hold.
    static constexpr int kFirstYear = 1601;
    static constexpr int kLastYear = 9999;

    DatePicker(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::DatePicker, std::move(name), parent, index) {
        SetTabStop(true);
    }
    bool KeepsKey(const KeyEvent& event) const override {
        return EditsText(event, true) || Control::KeepsKey(event);
    }
    /// Empty only when MayBeEmpty.
    const std::optional<DateTime>& Value() const { return value_; }
    /// Raises Change when it changes; throws error 5 for a date outside 1601 to 9999, or for none
    /// where one must be.
    void SetValue(std::optional<DateTime> value);
    bool MayBeEmpty() const { return mayBeEmpty_; }
    std::function<void()> Remember() override;
    /// Set before the window is shown. A picker that may be empty starts empty, another at
    /// 1899-12-30.
    void SetMayBeEmpty(bool mayBeEmpty);
    DateFormat Format() const { return format_; }
    void SetFormat(DateFormat format) { format_ = format; }

    std::function<void()> onChange;
    void UserPick(std::optional<DateTime> value);
    /// The user chose a day in the calendar: the time of day stays.
    void UserPickDay(DateTime day);

 private:
    std::optional<DateTime> value_ = DateTime();
    bool mayBeEmpty_ = false;
    DateFormat format_ = DateFormat::Date;
};

}  // namespace zv::forms

#include "mainwindow/birthdays.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "base/number.h"
#include "forms/field_keys.h"
#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {
namespace {

constexpr int kColumns = 5;
constexpr int kBirthdayColumn = 3;

// The whole number of a text that is a day count; error 6 for one that 16 bits cannot hold.
std::optional<std::int16_t> DayCount(std::string_view text) {
    const auto value = number::Parse(text);
    if (!value || *value < 0) return std::nullopt;
    return number::ToInt16(*value);
}

// One birthday that is no date does not end the reminder of all others: it is shown as it stands.
std::string DayText(const store::Value& value) {
    try {
        return value.ToDate().IsoDate();
    } catch (const RuntimeError&) {
        return value.ToText();
    }
}

// The window ends with the calendar.
DateTime LastDay(DateTime today, std::int16_t days) {
    return std::min(today.AddDays(days), DateTime(9999, 12, 31));
}

std::string TodayInBrackets(const std::string& today) {
    return "（今天 " + today + "）";
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

void Birthdays::Wire() {
    window_.chkBirthDay0.onClick = [this] { chkBirthDay0_Click(); };
    window_.txtBirthDay0.onGotFocus = [this] { txtBirthDay0_GotFocus(); };
    window_.txtBirthDay0.onValidate = [this](bool&) { txtBirthDay0_Validate(); };
    window_.txtBirthDay0.onKeyDown = [this](forms::KeyEvent& event) {
        txtBirthDay0_KeyDown(event);
    };
}

void Birthdays::ListBirthdays(std::int16_t days) {
    forms::Grid& grid = window_.Grid1;
    grid.SetDataRowCount(0);
    window_.session.EnsureConnection();
    const DateTime today = window_.session.machine.clock.Today();
    const auto rows = window_.session.database.Open(BirthdayStatement(today, LastDay(today, days)));
    std::vector<std::array<std::string, kColumns>> cards;
    for (; !rows->Eof(); rows->MoveNext()) {
        auto& card = cards.emplace_back();
        for (int column = 0; column < kColumns; column++) {
            const store::Value& value = rows->Field(column);
            card.at(static_cast<std::size_t>(column)) =
                column == kBirthdayColumn ? DayText(value) : value.ToText();
        }
    }
    rows->Close();
    grid.SetDataRowCount(static_cast<int>(cards.size()));
    int row = 0;
    for (auto& card : cards) {
        row++;
        for (int column = 0; column < kColumns; column++) {
            grid.SetCell(row, column + 1, std::move(card.at(static_cast<std::size_t>(column))));
        }
    }
}

// A reminder that cannot be filled is not on.
bool Birthdays::FillForTypedDays() {
    try {
        ListBirthdays(number::ToInt16(number::Val(window_.txtBirthDay0.Text())));
    } catch (...) {
        window_.chkBirthDay0.SetValue(0);
        throw;
    }
    return window_.Grid1.DataRowCount() > 0;
}

void Birthdays::TellThatThereAreNone() {
    if (!window_.IsShown()) return;
    window_.session.windows.ShowMessage(forms::BoxText("今天未有[客户生日报警] （提前") +
                                            forms::Inserted{window_.txtBirthDay0.Text()} + "天）！",
                                        forms::box::kInformation,
                                        window_.session.machine.clock.Today().IsoDate());
}

void Birthdays::chkBirthDay0_Click() {
    const bool on = window_.chkBirthDay0.Checked();
    if (on && !FillForTypedDays()) {
        // While the box stands a host may switch the reminder on again.
        window_.chkBirthDay0.SetValue(0);
        TellThatThereAreNone();
        return;
    }
    TellDay(on);
    window_.Grid1.SetVisible(on);
    if (on) window_.Grid1.BringToFront();
    window_.cmdSeek.SetVisible(!on);
    for (int action = 1; action <= 3; action++) window_.cmdAction[action].SetVisible(!on);
    window_.cmdTaskOK.SetVisible(!on);
    window_.printing.UpdateButton();
}

void Birthdays::ShowDay() {
    shownDay_ = window_.session.machine.clock.Today();
    window_.lblBirthDay.SetCaption(shownDay_.IsoDate());
}

void Birthdays::TellDay(bool on) {
    shownDay_ = window_.session.machine.clock.Today();
    const std::string today = TodayInBrackets(shownDay_.IsoDate());
    window_.lblBirthDay.SetCaption(on ? "客户生日报警 " + today : today);
}

void Birthdays::FollowTheDay() {
    if (shownDay_ == window_.session.machine.clock.Today()) return;
    if (!window_.chkBirthDay0.Checked()) {
        ShowDay();
    } else if (FillForTypedDays()) {
        TellDay(true);
    } else {
        window_.chkBirthDay0.SetValue(0);
    }
}

std::function<void()> Birthdays::Remember() {
    return [this, day = shownDay_] { shownDay_ = day; };
}

void Birthdays::txtBirthDay0_GotFocus() {
    daysBefore_ = window_.txtBirthDay0.Text();
}

void Birthdays::txtBirthDay0_Validate() {
    // Whatever is no day count gives way to the one before, so that the box can always be left.
    const std::string typed = window_.txtBirthDay0.Text();
    const auto before = number::Parse(daysBefore_);
    window_.txtBirthDay0.SetText(before && *before >= 0 ? daysBefore_ : "0");
    if (const auto days = DayCount(typed)) window_.txtBirthDay0.SetText(std::to_string(*days));
}

void Birthdays::txtBirthDay0_KeyDown(forms::KeyEvent& event) {
    forms::MoveOnEnter(window_, event);
}

}  // namespace zv::mainwindow

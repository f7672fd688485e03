#include "windows/main/panels/birthday_panel.h"

#include <optional>
#include <utility>

#include "base/number.h"
#include "cards/birthdays.h"
#include "forms/field_keys.h"
#include "forms/layout/metrics.h"
#include "resources/fixed_texts.h"

namespace zv::windows {
namespace {

using resources::DesignText;
namespace fixed = resources::fixed;

// The whole number of a text that is a day count; error 6 for one that 16 bits cannot hold.
std::optional<std::int16_t> DayCount(std::string_view text) {
    const auto value = number::Parse(text);
    if (!value || *value < 0) return std::nullopt;
    return number::ToInt16(*value);
}

std::string TodayInBrackets(const std::string& today) {
    return fixed::kTodayBegin + today + fixed::kTodayEnd;
}

}  // namespace

BirthdayPanel::BirthdayPanel(forms::Form& form, forms::Control& page, Session& session)
    : form_(form),
      session_(session),
      chkBirthDay0(form, "chkBirthDay0", &page),
      txtBirthDay0(form, "txtBirthDay0", &page),
      lblDays(form, "lblDays", &page),
      lblBirthDay(form, "lblBirthDay", &page),
      Grid1(form, "Grid1", &page) {
    chkBirthDay0.onClick = [this] { chkBirthDay0_Click(); };
    txtBirthDay0.onGotFocus = [this] { txtBirthDay0_GotFocus(); };
    txtBirthDay0.onValidate = [this](bool&) { txtBirthDay0_Validate(); };
    txtBirthDay0.onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(form_, event); };
}

void BirthdayPanel::LoadGrid() {
    Grid1.SetColumns({{session_.LoadText(DesignText::CardCode), 80, true},
                      {session_.LoadText(DesignText::CardName), 90, true},
                      {session_.LoadText(DesignText::Company), 220, true},
                      {session_.LoadText(DesignText::Birthday), 90, true},
                      {"fID", 60, false},
                      {session_.LoadText(DesignText::DaysLeft), 90, true}});
    Grid1.SetVisible(false);
}

void BirthdayPanel::SetCaptions() {
    chkBirthDay0.SetCaption(session_.LoadText(DesignText::BirthdayList));
    lblDays.SetCaption(session_.LoadText(DesignText::DaysAhead));
    txtBirthDay0.SetAccessibleName(lblDays.Caption());
    Grid1.SetAccessibleName(session_.LoadText(DesignText::Birthday));
}

void BirthdayPanel::Place(const forms::Rect& page) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const int inner = page.width - 2 * kMargin;
    const int left = kMargin;
    const int bottom = page.height - kMargin - m.Field();
    Grid1.Move({left, kMargin, inner, bottom - kGap - kMargin});
    int x = left;
    const int boxWidth = m.BoxWidth(chkBirthDay0.Caption());
    chkBirthDay0.Move({x, bottom, boxWidth, m.Field()});
    x += boxWidth + kLabelGap;
    txtBirthDay0.Move({x, bottom, m.Number(), m.Field()});
    x += m.Number() + kLabelGap;
    const int daysWidth = m.Width(lblDays.Caption()) + kLabelGap;
    lblDays.Move({x, bottom + m.LabelDrop(), daysWidth, m.Text()});
    x += daysWidth + kColumnGap;
    lblBirthDay.Move({x, bottom + m.LabelDrop(), left + inner - x, m.Text()});
}

void BirthdayPanel::ListBirthdays(std::int16_t days) {
    Grid1.SetDataRowCount(0);
    auto cards = cards::Birthdays(session_.database, session_.machine.clock.Today(), days);
    Grid1.SetDataRowCount(static_cast<int>(cards.size()));
    int row = 0;
    for (cards::BirthdayCard& card : cards) {
        row++;
        int column = 0;
        std::string daysLeft = card.daysLeft ? std::to_string(*card.daysLeft) : "";
        for (std::string* text :
             {&card.code, &card.name, &card.company, &card.birthday, &card.id, &daysLeft}) {
            Grid1.SetCell(row, ++column, std::move(*text));
        }
    }
}

// A reminder that cannot be filled is not on.
bool BirthdayPanel::FillForTypedDays() {
    try {
        ListBirthdays(number::ToInt16(number::Val(txtBirthDay0.Text())));
    } catch (...) {
        Switch(false);
        throw;
    }
    return Grid1.DataRowCount() > 0;
}

void BirthdayPanel::ShowThatThereAreNone() {
    if (!form_.IsShown()) return;
    session_.windows.ShowMessage(forms::BoxText(fixed::kNoBirthdayBegin) +
                                     forms::Inserted{txtBirthDay0.Text()} + fixed::kNoBirthdayEnd,
                                 forms::box::kInformation,
                                 session_.machine.clock.Today().IsoDate());
}

void BirthdayPanel::FillAgain() {
    if (!IsOn()) return;
    Switch(false);
    Switch(true);
}

void BirthdayPanel::chkBirthDay0_Click() {
    const bool on = IsOn();
    if (on && !FillForTypedDays()) {
        // While the box stands a host may switch the reminder on again.
        Switch(false);
        ShowThatThereAreNone();
        return;
    }
    SetDayCaption(on);
    Grid1.SetVisible(on);
    if (on) Grid1.BringToFront();
    if (onSwitched) onSwitched(on);
}

void BirthdayPanel::ShowDay() {
    shownDay_ = session_.machine.clock.Today();
    lblBirthDay.SetCaption(shownDay_.IsoDate());
}

void BirthdayPanel::SetDayCaption(bool on) {
    shownDay_ = session_.machine.clock.Today();
    const std::string today = TodayInBrackets(shownDay_.IsoDate());
    lblBirthDay.SetCaption(on ? std::string(fixed::kBirthdays) + ' ' + today : today);
}

void BirthdayPanel::FollowTheDay() {
    if (shownDay_ == session_.machine.clock.Today()) return;
    if (!IsOn()) {
        ShowDay();
    } else if (FillForTypedDays()) {
        SetDayCaption(true);
    } else {
        Switch(false);
    }
}

std::function<void()> BirthdayPanel::Remember() {
    return [this, day = shownDay_] { shownDay_ = day; };
}

void BirthdayPanel::txtBirthDay0_GotFocus() {
    daysBefore_ = txtBirthDay0.Text();
}

void BirthdayPanel::txtBirthDay0_Validate() {
    // Whatever is no day count gives way to the one before, so that the box can always be left.
    const std::string typed = txtBirthDay0.Text();
    const auto before = number::Parse(daysBefore_);
    txtBirthDay0.SetText(before && *before >= 0 ? daysBefore_ : "0");
    if (const auto days = DayCount(typed)) txtBirthDay0.SetText(std::to_string(*days));
}

}  // namespace zv::windows

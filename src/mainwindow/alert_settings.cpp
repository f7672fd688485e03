#include "mainwindow/alert_settings.h"

#include <cmath>

#include "base/number.h"
#include "forms/field_keys.h"
#include "mainwindow/frm_task_main.h"
#include "resources/switch_setting.h"

namespace zv::mainwindow {
namespace {

constexpr std::string_view kDefaultDays = "5";
constexpr std::string_view kDefaultMinutes = "5";

// Minutes as the clock shows them: 10:00:59 and 10:01:00 are a minute apart.
std::int64_t MinutesBetween(DateTime from, DateTime until) {
    constexpr std::int64_t kSecondsPerMinute = 60;
    return until.Seconds() / kSecondsPerMinute - from.Seconds() / kSecondsPerMinute;
}

}  // namespace

void AlertSettings::Load() {
    const auto setting = [this](std::string_view key, std::string_view fallback) {
        return window_.session.GetSetting(resources::kTaskSection, key, fallback);
    };
    window_.chkStartup.SetValue(resources::SwitchOf(setting("Startup", "1")));

    const std::string days = setting("StartupBirthDay", "0");
    window_.txtBirthDay0.SetText(days);
    window_.chkBirthDay.SetValue(resources::SwitchOf(days));
    if (number::ToDouble(days) == 0) window_.txtBirthDay0.SetText(std::string(kDefaultDays));

    const std::string minutes = setting("TimeSetting", "0");
    window_.txtTimeSet.SetText(minutes);
    window_.txtTimeSet.SetEnabled(false);
    window_.chkTimeSet.SetValue(number::ToDouble(minutes) > 0 ? 1 : 0);
}

void AlertSettings::chkStartup_Click() {
    if (!window_.chkStartup.Visible()) return;
    window_.session.SaveSetting(resources::kTaskSection, "Startup",
                                std::to_string(window_.chkStartup.Value()));
}

void AlertSettings::chkBirthDay_Click() {
    if (!window_.chkBirthDay.Visible()) return;
    std::string days = "0";
    if (window_.chkBirthDay.Checked()) {
        const std::int16_t typed = number::ToInt16(number::Val(window_.txtBirthDay0.Text()));
        days = typed == 0 ? std::string(kDefaultDays) : std::to_string(typed);
    }
    window_.session.SaveSetting(resources::kTaskSection, "StartupBirthDay", days);
}

void AlertSettings::chkTimeSet_Click() {
    if (window_.chkTimeSet.Checked()) {
        window_.txtTimeSet.SetEnabled(true);
        if (window_.txtTimeSet.Visible()) window_.txtTimeSet.SetFocus();
        if (number::Val(window_.txtTimeSet.Text()) == 0) {
            window_.txtTimeSet.SetText(std::string(kDefaultMinutes));
        }
        return;
    }
    window_.txtTimeSet.SetEnabled(false);
    window_.txtTimeSet.SetText("0");
    // Only switching off is stored; a typed interval holds for this window.
    window_.session.SaveSetting(resources::kTaskSection, "TimeSetting", "0");
}

void AlertSettings::txtTimeSet_GotFocus() {
    window_.txtTimeSet.SelectAll();
}

void AlertSettings::txtTimeSet_KeyDown(forms::KeyEvent& event) {
    forms::MoveOnEnter(window_, event);
}

void AlertSettings::txtTimeSet_LostFocus() {
    const auto typed = number::Parse(window_.txtTimeSet.Text());
    const std::int16_t minutes = typed ? number::ToInt16(std::abs(*typed)) : std::int16_t{0};
    window_.txtTimeSet.SetText(std::to_string(minutes));
    // Meant this way round: the timer runs until its first tick finds the interval switched off.
    window_.Timer1.SetRunning(minutes == 0);
    if (minutes == 0) window_.state.lastRead = window_.session.machine.clock.Now();
}

void AlertSettings::Timer1_Timer() {
    const double interval = number::Val(window_.txtTimeSet.Text());
    if (interval == 0) {
        window_.Timer1.SetRunning(false);
        return;
    }
    const DateTime now = window_.session.machine.clock.Now();
    if (interval >= static_cast<double>(MinutesBetween(window_.state.lastRead, now))) {
        window_.state.lastRead = now;
    }
}

}  // namespace zv::mainwindow

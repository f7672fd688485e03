#include "alerter/alerter.h"

#include <utility>

#include "resources/alerter_texts.h"
#include "resources/switch_setting.h"
#include "windows/main/acts/rights.h"
#include "windows/main/frm_task_main.h"
#include "windows/remind/frm_remind.h"
#include "windows/remind/reminding.h"

namespace zv::alerter {

using resources::AlerterText;

namespace {

constexpr std::int32_t kManager = 1;
constexpr std::int16_t kModeless = 0;

}  // namespace

Alerter::Alerter(Session& session, Tray& tray) : session_(session), tray_(tray) {
    session_.listener = this;
}

Alerter::~Alerter() {
    session_.listener = nullptr;
}

bool Alerter::Start() {
    if (!IsWanted()) return false;
    FollowLogin();
    Remind();
    return true;
}

bool Alerter::IsWanted() const {
    // Who wrote what is no number did not switch it off.
    return resources::SwitchOr(session_.GetSetting(resources::kTaskSection, "Startup", "1"), 1) !=
           0;
}

int Alerter::Minutes() const {
    return session_.GetNumber(resources::kRemindInterval);
}

bool Alerter::FollowLogin() {
    std::optional<HandedOver> kept = ReadHandedOver(session_);
    if (kept == user_) return false;
    user_ = std::move(kept);
    if (user_) TakeHandedOver(session_, *user_);
    return true;
}

void Alerter::Remind() {
    const bool reminds = user_ && !pausedUntil_;
    if (reminds && !control_.Reminding()) {
        control_.Remind();
    } else if (!reminds) {
        control_.StopReminders();
    }
    ShowFace();
}

void Alerter::Tick() {
    if (ended_) return;
    if (!IsWanted()) return End();
    // Windows that stand open belong to the user who was handed over before.
    if (!session_.windows.HasOpened() && FollowLogin()) control_.StopReminders();
    if (PauseIsOver()) pausedUntil_.reset();
    Remind();
}

bool Alerter::PauseIsOver() const {
    if (!pausedUntil_) return false;
    const DateTime now = session_.machine.clock.Now();
    // A clock that was set back would make it longer than the user wanted.
    return now >= *pausedUntil_ || *pausedUntil_ > now.AddSeconds(kPauseSeconds);
}

void Alerter::LookAgain() {
    if (ended_) return;
    Tick();
    if (auto* window = session_.windows.Find<windows::frmRemind>(windows::frmRemind::kName)) {
        window->LookAgain();
    }
    ShowFace();
}

void Alerter::ReminderShown(std::int32_t count) {
    tray_.Announce(session_.state.applicationTitle,
                   session_.LoadText(AlerterText::Balloon, std::to_string(count)));
    ShowFace();
}

void Alerter::OpenMenu() {
    if (ended_) return;
    if (const std::optional<Act> act = tray_.Choose(Entries())) Do(*act);
}

std::vector<MenuEntry> Alerter::Entries() const {
    const bool knows = user_.has_value();
    const auto entry = [&](Act act, AlerterText text, bool enabled) {
        return MenuEntry{act, session_.LoadText(text), enabled};
    };
    return {entry(Act::Open, AlerterText::Open, knows),
            entry(Act::NewEntry, AlerterText::NewEntry, knows),
            pausedUntil_ ? entry(Act::GoOn, AlerterText::GoOn, knows)
                         : entry(Act::Pause, AlerterText::Pause, knows),
            entry(Act::Options, AlerterText::Options, knows),
            entry(Act::Exit, AlerterText::Exit, true)};
}

void Alerter::Do(Act act) {
    if (ended_ || (!user_ && act != Act::Exit)) return;
    switch (act) {
        case Act::Open:
            return OpenManager();
        case Act::NewEntry:
            return OpenManager([this](windows::frmTaskMain& window) {
                // Input that is under way goes on.
                if (window.model.Editing()) return;
                constexpr auto kRight = static_cast<std::int16_t>(windows::EditMode::Adding);
                if (!windows::HasRightToItems(session_, window.model, kRight)) return;
                window.editing.StartAddItem(items::ItemKind::Task);
            });
        case Act::Options:
            return OpenManager(
                [](windows::frmTaskMain& window) { window.SSTab1.SetTab(windows::kOptionsTab); });
        case Act::Pause:
            pausedUntil_ = session_.machine.clock.Now().AddSeconds(kPauseSeconds);
            return Remind();
        case Act::GoOn:
            pausedUntil_.reset();
            return Remind();
        case Act::Exit:
            return End();
    }
}

void Alerter::OpenManager(const std::function<void(windows::frmTaskMain&)>& then) {
    // It is the user who acts here, and who reads why it cannot be done.
    session_.windows.FromUser([&] {
        control_.refresh(kManager, kModeless);
        auto* window = session_.windows.Find<windows::frmTaskMain>(windows::frmTaskMain::kName);
        if (window && then) then(*window);
    });
}

void Alerter::ShowFace() {
    Face face = PresentFace();
    if (shown_ == face) return;
    tray_.Show(face);
    shown_ = std::move(face);
}

Face Alerter::PresentFace() const {
    if (!user_) return {Mood::MustLogIn, "?", session_.LoadText(AlerterText::MustLogIn)};
    if (pausedUntil_) {
        return {Mood::Paused,
                {},
                session_.LoadText(AlerterText::Paused, pausedUntil_->HourAndMinute())};
    }
    constexpr int kMostDigits = 99;
    const auto* window = session_.windows.Find<windows::frmRemind>(windows::frmRemind::kName);
    const int due = window ? window->DueCount() : 0;
    const std::string count = std::to_string(due);
    if (due == 0) return {Mood::NothingDue, {}, session_.LoadText(AlerterText::NothingDue)};
    return {Mood::Due, due > kMostDigits ? "+" : count, session_.LoadText(AlerterText::Due, count)};
}

void Alerter::End() {
    if (std::exchange(ended_, true)) return;
    control_.StopReminders();
    if (onEnd) onEnd();
}

}  // namespace zv::alerter

// Reminders without a host: a program beside the clock that works as the user who logged in last.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "alerter/tray.h"
#include "base/date_time.h"
#include "control/zv_task.h"
#include "session/hand_over.h"
#include "session/host_events.h"

namespace zv::alerter {

/// The windows are those of the control, with their rights and their texts; this only says when
/// they come and what the icon shows.
class Alerter final : public PartialHostEvents {
 public:
    static constexpr std::int64_t kPauseSeconds = 3600;

    /// Both must outlive this. The session's listener is this one.
    Alerter(Session& session, Tray& tray);
    ~Alerter() override;
    Alerter(const Alerter&) = delete;
    Alerter& operator=(const Alerter&) = delete;

    /// False when the workstation does not want it ("Startup" is "0"): the program ends.
    bool Start();
    /// At the end of each Minutes(): follows who is logged in, the switch and the end of a pause.
    void Tick();
    /// How long to sleep until Tick, in whole minutes, at least one.
    int Minutes() const;
    /// The user is back at a session that was locked or another's: what is due is looked up at
    /// once.
    void LookAgain();

    void OpenMenu();
    void Do(Act act);

    /// The program is to end; called at most once.
    std::function<void()> onEnd;

    void ReminderShown(std::int32_t count) override;
    void ReminderActed(std::int32_t, std::int16_t) override { ShowFace(); }

 private:
    /// Works as the user who was handed over last; true when that is another one than before.
    bool FollowLogin();
    void Remind();
    bool PauseIsOver() const;
    void OpenManager(const std::function<void(windows::frmTaskMain&)>& then = {});
    void ShowFace();
    Face PresentFace() const;
    std::vector<MenuEntry> Entries() const;
    bool IsWanted() const;
    void End();

    Session& session_;
    Tray& tray_;
    ZvTask control_{session_};
    std::optional<HandedOver> user_;
    std::optional<DateTime> pausedUntil_;
    std::optional<Face> shown_;
    bool ended_ = false;
};

}  // namespace zv::alerter

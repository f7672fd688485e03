// The window of reminders. It comes up by itself when something is due, without taking the
// keyboard, and works unseen in between.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "forms/buttons.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/timer.h"
#include "items/item_store.h"
#include "reminders/look.h"
#include "resources/remind_texts.h"
#include "session/session.h"
#include "session/store_client.h"
#include "windows/notice/notice_line.h"
#include "windows/remind/acting_on_reminders.h"

namespace zv::windows {

/// How a reminder was answered, as hosts learn of it.
enum class ReminderAct : std::int16_t { Done = 1, InHand = 2, Open = 3, Later = 4, Dismiss = 5 };

class frmRemind : public forms::Form, public StoreClient {
 public:
    static constexpr std::string_view kName = "frmRemind";

    /// The session must outlive the window; `open` shows an item in the task manager.
    frmRemind(forms::WindowSystem& windows, Session& session,
              std::function<void(const items::SavedItem&)> open);

    // Order of creation is tab order.
    forms::Label lblCount{*this, "lblCount"};
    forms::Grid grdDue{*this, "grdDue"};
    forms::Label lblOld{*this, "lblOld"};
    forms::CommandButton cmdDone{*this, "cmdDone"};
    forms::CommandButton cmdInHand{*this, "cmdInHand"};
    forms::CommandButton cmdOpen{*this, "cmdOpen"};
    forms::ComboBox cboLater{*this, "cboLater", nullptr, forms::ComboStyle::ListOnly};
    forms::DatePicker dtpLater{*this, "dtpLater"};
    forms::CommandButton cmdLater{*this, "cmdLater"};
    forms::CommandButton cmdDismiss{*this, "cmdDismiss"};
    forms::CommandButton cmdClose{*this, "cmdClose"};
    forms::Timer tmrLook{*this, "tmrLook", 1000};
    NoticeLine notice;

    /// Speaks the present language and looks, as after a start.
    void StartAgain();
    /// Looks at what is due and when to look next. A store that is away is said in the window and
    /// tried again later.
    void LookAgain();
    int DueCount() const { return static_cast<int>(due_.size()); }

    void ForgetStore() override;
    void ShowStore() override { LookAgain(); }
    void ShowRows(const std::vector<changes::RowChange>&) override { LookAgain(); }

 protected:
    void Form_Load() override;
    void Form_Resize() override { PlaceControls(); }
    void Form_Rescale() override;
    void Form_ClockChange() override { LookAgain(); }
    /// The window stays behind until something new is due.
    void Form_QueryUnload(bool& cancel, bool byUser) override;

 private:
    // frm_remind.cpp
    void SetCaptions();
    void SetColumns();
    void SetKeys();
    void SetChoices();
    void Apply(reminders::Look look);
    /// Hidden: fID, by which a row is found again when the user has sorted them.
    static constexpr int kNumberColumn = 6;
    using Texts = std::array<std::string, kNumberColumn>;
    std::vector<Texts> RowTexts() const;
    bool Shows(const std::vector<Texts>& rows) const;
    void List(std::vector<reminders::Due> due);
    void ComeUp(int fresh);
    void SleepUntil(DateTime moment);
    reminders::Look LookNow();
    void SelectItems(const std::set<std::int32_t>& items);
    /// Reads the whole table, and so only when the day or what is counted has changed.
    void CountOld();
    void ShowOld();
    /// The reminder of a row; null where the row is gone.
    const reminders::Due* AtRow(int row) const;

    // frm_remind_acts.cpp
    std::set<std::int32_t> SelectedItems() const;
    std::vector<reminders::Due> Selected() const;
    /// Those of them that are due still; the user learns of the others when the act is over.
    std::vector<reminders::Due> StillDue(const std::vector<reminders::Due>& wanted);
    void ReportGone(std::size_t gone);
    void cmdDone_Click();
    void cmdInHand_Click();
    void cmdOpen_Click();
    void cmdLater_Click();
    void cmdDismiss_Click();
    struct HowDone {
        std::string caption{};                            ///< says what is done
        std::size_t inPiece = 0;                          ///< as ActingOnReminders has it
        std::optional<resources::RemindText> question{};  ///< asked about several
    };
    /// Does it for those that are still due, some at a time, so that the user can stop what takes
    /// long; no more once another user or store has come. Looks again whatever comes of it, and
    /// says how many of them somebody else had changed.
    void ForAll(const std::vector<reminders::Due>& wanted, const HowDone& how,
                const RemindersAct& act);
    bool Mark(const reminders::Due& due, items::ItemState state);
    void Answer(const std::vector<reminders::Due>& dues, std::optional<DateTime> until,
                ReminderAct act);
    std::optional<DateTime> ChosenMoment() const;
    void Announce(const reminders::Due& due, ReminderAct act);
    bool Agrees(resources::RemindText question, std::size_t count);
    void SelectAll();
    void ShowOwnTime();

    // frm_remind_layout.cpp
    void PlaceControls();
    void PlaceFirstLine();
    void FitToRows();
    void MoveToCorner();

    Session& session_;
    std::function<void(const items::SavedItem&)> open_;
    std::vector<reminders::Due> due_;
    std::unordered_map<std::int32_t, std::size_t> places_;  ///< in due_, by fID
    /// Those that the user has been shown: only another one brings the window up again.
    std::set<reminders::Key> shown_;
    reminders::Circumstances circumstances_;  ///< of the last look
    std::vector<reminders::Answer> answers_;  ///< likewise
    std::int32_t old_ = 0;
    /// What old_ was counted for: the day, the first look and whose items.
    std::optional<std::tuple<DateTime, DateTime, reminders::Whose>> counted_;
    int failures_ = 0;
    bool looking_ = false;
};

}  // namespace zv::windows

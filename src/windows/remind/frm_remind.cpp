#include "windows/remind/frm_remind.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/number.h"
#include "items/names.h"
#include "reminders/put_off.h"
#include "reminders/retry.h"
#include "reminders/store_memory.h"
#include "reminders/subjects.h"
#include "resources/design_texts.h"
#include "resources/remind_texts.h"
#include "resources/switch_setting.h"
#include "resources/text_ids.h"
#include "session/key_list.h"
#include "windows/remind/due_words.h"
#include "windows/remind/reminding.h"

namespace zv::windows {
namespace {

using resources::DesignText;
using resources::RemindText;

constexpr std::int64_t kSecondsOfMinute = 60;

constexpr std::array kChoices = {RemindText::FiveMinutes, RemindText::QuarterHour,
                                 RemindText::HalfHour,    RemindText::Hour,
                                 RemindText::FourHours,   RemindText::TomorrowMorning,
                                 RemindText::NextMonday,  RemindText::OwnTime};

// The user's choice of own items or all, as the list of items keeps it.
reminders::Whose WhoseOf(const Session& session) {
    const std::string stored = session.GetSetting(resources::kTaskSection, "JbrName", "0");
    return resources::SwitchOr(stored, 0) != 0 ? reminders::Whose::Own : reminders::Whose::All;
}

}  // namespace

frmRemind::frmRemind(forms::WindowSystem& windows, Session& session,
                     std::function<void(const items::SavedItem&)> open)
    : Form(windows, std::string(kName)),
      notice(*this, session.takeBack),
      session_(session),
      open_(std::move(open)) {
    SetComesByItself(true);
    SetSizable(true);
    cmdDone.onClick = [this] { cmdDone_Click(); };
    cmdInHand.onClick = [this] { cmdInHand_Click(); };
    cmdOpen.onClick = [this] { cmdOpen_Click(); };
    cmdLater.onClick = [this] { cmdLater_Click(); };
    cmdDismiss.onClick = [this] { cmdDismiss_Click(); };
    cmdClose.onClick = [this] { Hide(); };
    cboLater.onClick = [this] { ShowOwnTime(); };
    tmrLook.onTimer = [this] { LookAgain(); };
    notice.onShown = [this] { PlaceFirstLine(); };
    defaultButton = &cmdOpen;
    cancelButton = &cmdClose;
    SetKeys();
}

void frmRemind::SetKeys() {
    static constexpr forms::KeyChord kDone{'D', true};
    static constexpr forms::KeyChord kInHand{'H', true};
    static constexpr forms::KeyChord kLater{'L', true};
    static constexpr forms::KeyChord kAll{'A', true};
    static constexpr forms::KeyChord kDismiss{forms::key::kDelete};
    static constexpr forms::KeyChord kOpen{forms::key::kEnter};
    static constexpr forms::KeyChord kLook{forms::key::kF5};
    static constexpr forms::KeyChord kTakeBack{'Z', true};
    static constexpr forms::KeyChord kDoAgain{'Y', true};
    static constexpr forms::KeyChord kThisList{forms::key::kF1};
    shortcuts.Press(kDone, cmdDone);
    shortcuts.Press(kInHand, cmdInHand);
    shortcuts.Press(kLater, cmdLater);
    shortcuts.Press(kDismiss, cmdDismiss);
    shortcuts.Do(kAll, [this] { SelectAll(); });
    shortcuts.Do(kLook, [this] { LookAgain(); });
    shortcuts.Do(
        kTakeBack, [this] { session_.takeBack.TakeNewest(); },
        [this] { return session_.acts.CanTakeBack(); });
    shortcuts.Do(
        kDoAgain, [this] { session_.takeBack.DoAgain(); },
        [this] { return session_.acts.CanDoAgain(); });
    shortcuts.Do(kThisList, [this] {
        using resources::KeyText;
        ShowKeyList(session_, {{{kDone}, KeyText::Done},
                               {{kInHand}, KeyText::InHand},
                               {{kLater}, KeyText::PutOff},
                               {{kDismiss}, KeyText::Dismiss},
                               {{kOpen}, KeyText::OpenItem},
                               {{kAll}, KeyText::SelectAll},
                               {{kLook}, KeyText::ReadAgain},
                               {{kTakeBack}, KeyText::TakeBack},
                               {{kDoAgain}, KeyText::DoAgain},
                               {{{forms::key::kEscape}}, KeyText::Leave},
                               {{kThisList}, KeyText::ThisList}});
    });
}

void frmRemind::Form_Load() {
    SetCaptions();
    SetColumns();
    SetChoices();
    cboLater.SetListIndex(0);
    dtpLater.SetFormat(forms::DateFormat::DateTime);
    const DateTime now = session_.machine.clock.Now();
    dtpLater.SetValue(reminders::MomentOf(reminders::PutOff::TomorrowMorning, now).value_or(now));
    ShowOwnTime();
    FitToRows();
}

void frmRemind::SetCaptions() {
    const auto text = [this](auto id) { return session_.LoadText(id); };
    SetCaption(text(RemindText::Caption));
    cmdDone.SetCaption(text(RemindText::ButtonDone));
    cmdInHand.SetCaption(text(RemindText::ButtonInHand));
    cmdOpen.SetCaption(text(RemindText::ButtonOpen));
    cmdLater.SetCaption(text(RemindText::ButtonLater));
    cmdDismiss.SetCaption(text(RemindText::ButtonDismiss));
    cmdClose.SetCaption(text(RemindText::ButtonClose));
    cmdDone.SetAccessKey('D');
    cmdInHand.SetAccessKey('H');
    cmdOpen.SetAccessKey('O');
    cmdLater.SetAccessKey('L');
    cmdDismiss.SetAccessKey('N');
    cmdClose.SetAccessKey('X');
    grdDue.SetAccessibleName(Caption());
    cboLater.SetAccessibleName(cmdLater.Caption());
    dtpLater.SetAccessibleName(text(RemindText::OwnTime));
}

void frmRemind::SetChoices() {
    const int chosen = cboLater.ListIndex();
    std::vector<std::string> choices;
    choices.reserve(kChoices.size());
    for (const RemindText choice : kChoices) choices.push_back(session_.LoadText(choice));
    cboLater.SetItems(std::move(choices));
    cboLater.SetListIndex(chosen);
}

void frmRemind::StartAgain() {
    SetCaptions();
    SetColumns();
    SetChoices();
    FitToRows();
    LookAgain();
}

void frmRemind::SetColumns() {
    const auto text = [this](auto id) { return session_.LoadText(id); };
    // Together they leave room for the bar that scrolls the rows.
    grdDue.SetColumns({{text(text_id::kTitle), 200},
                       {text(DesignText::Kind), 80},
                       {text(DesignText::Company), 120},
                       {text(RemindText::ColumnDue), 96},
                       {text(text_id::kExecutor), 84},
                       {"", 0, false}});
}

void frmRemind::Form_Rescale() {
    FitToRows();
}

void frmRemind::Form_QueryUnload(bool& cancel, bool byUser) {
    if (!byUser) return;
    cancel = true;
    Hide();
}

void frmRemind::ForgetStore() {
    shown_.clear();
    counted_.reset();
    old_ = 0;
    List({});
}

reminders::Look frmRemind::LookNow() {
    // A control without a store has nothing to remind of.
    const ControlState& state = session_.state;
    const DateTime now = session_.machine.clock.Now();
    // Another user has been shown nothing yet.
    if (circumstances_.user != state.UserName) {
        ForgetStore();
        session_.acts.ForgetOthers();
    }
    circumstances_ = {.user = state.UserName,
                      .whose = WhoseOf(session_),
                      .now = now,
                      .firstLook = now,
                      .interval = session_.GetNumber(resources::kRemindInterval)};
    if (state.UserPath.IsEmpty() && state.SQLData == 0 && !session_.database.HasConnection()) {
        return reminders::LookAt({}, {}, circumstances_);
    }
    session_.database.EnsureConnection();
    reminders::StoreMemory memory(session_.database, session_.settings);
    circumstances_.firstLook = memory.FirstLook(state.UserName, now);
    answers_ = memory.Answers(state.UserName);
    return reminders::LookAt(
        reminders::ReadSubjects(session_.database, now, circumstances_.firstLook), answers_,
        circumstances_);
}

void frmRemind::LookAgain() {
    // A component that opens the store may let messages through.
    if (std::exchange(looking_, true)) return;
    struct Looking {
        bool& flag;
        ~Looking() { flag = false; }
    } const looking{looking_};
    const DateTime now = session_.machine.clock.Now();
    try {
        Apply(LookNow());
        failures_ = 0;
    } catch (const RuntimeError&) {
        // No box: the user did nothing that could fail. He reads it where he looks at reminders.
        failures_++;
        lblOld.SetCaption(session_.LoadText(RemindText::NoStore));
        SleepUntil(now.AddSeconds(kSecondsOfMinute * reminders::RetryMinutes(failures_)));
    }
}

void frmRemind::Apply(reminders::Look look) {
    std::set<reminders::Key> keys;
    int fresh = 0;
    for (const reminders::Due& due : look.due) {
        const reminders::Key key = reminders::KeyOf(due.subject);
        if (shown_.find(key) == shown_.end()) fresh++;
        keys.insert(key);
    }
    if (!look.due.empty()) CountOld();
    List(std::move(look.due));
    if (due_.empty()) {
        shown_.clear();
        Hide();
        return SleepUntil(look.next);
    }
    if (fresh > 0 && session_.windows.SomethingStands()) {
        // What stands there asks for an answer first.
        return SleepUntil(session_.machine.clock.Now().AddSeconds(kSecondsOfMinute));
    }
    shown_ = std::move(keys);
    SleepUntil(look.next);
    if (fresh > 0) ComeUp(fresh);
}

void frmRemind::ComeUp(int fresh) {
    if (!IsShown()) {
        FitToRows();
        MoveToCorner();
        Surface();
    }
    session_.Announce([fresh](HostEvents& host) { host.ReminderShown(fresh); });
}

void frmRemind::SleepUntil(DateTime moment) {
    constexpr std::int64_t kMillisecondsOfSecond = 1000;
    const std::int64_t seconds = moment.Seconds() - session_.machine.clock.Now().Seconds();
    const std::int64_t longest = kSecondsOfMinute * 24 * 60;
    tmrLook.SetIntervalMs(
        static_cast<int>(std::clamp<std::int64_t>(seconds, 1, longest) * kMillisecondsOfSecond));
    tmrLook.SetRunning(true);
}

std::vector<frmRemind::Texts> frmRemind::RowTexts() const {
    const DateTime now = session_.machine.clock.Now();
    const std::int16_t language = resources::SpokenLanguage(session_.state.Language);
    const std::vector<std::string> kinds = items::KindNames(language);
    std::vector<Texts> rows;
    for (const reminders::Due& due : due_) {
        rows.push_back({due.subject.title, kinds[items::Position(due.subject.kind)],
                        due.subject.guest, DueWords(due, now, language), due.subject.people.doer,
                        std::to_string(due.subject.item)});
    }
    return rows;
}

bool frmRemind::Shows(const std::vector<Texts>& rows) const {
    if (grdDue.DataRowCount() != static_cast<int>(rows.size())) return false;
    for (int row = 1; row <= grdDue.DataRowCount(); row++) {
        for (int column = 1; column <= kNumberColumn; column++) {
            const Texts& wanted = rows[static_cast<std::size_t>(row - 1)];
            if (grdDue.Cell(row, column) != wanted[static_cast<std::size_t>(column - 1)]) {
                return false;
            }
        }
    }
    return true;
}

void frmRemind::List(std::vector<reminders::Due> due) {
    const std::set<std::int32_t> selected = SelectedItems();
    due_ = std::move(due);
    places_.clear();
    for (std::size_t i = 0; i < due_.size(); i++) places_[due_[i].subject.item] = i;
    lblCount.SetCaption(session_.LoadText(RemindText::Count, std::to_string(due_.size())));
    ShowOld();
    const std::vector<Texts> rows = RowTexts();
    if (Shows(rows)) return;
    grdDue.SetDataRowCount(0);
    {
        forms::Grid::Filling filling(grdDue);
        for (const Texts& row : rows) {
            std::array<std::string_view, kNumberColumn> texts;
            std::copy(row.begin(), row.end(), texts.begin());
            filling.Append(texts);
        }
    }
    SelectItems(selected);
    if (IsShown()) FitToRows();
}

// Where nothing is selected the first one is: a key then acts on what is most urgent.
void frmRemind::SelectItems(const std::set<std::int32_t>& items) {
    std::vector<int> rows;
    for (int row = 1; row <= grdDue.DataRowCount(); row++) {
        const reminders::Due* due = AtRow(row);
        if (due && items.find(due->subject.item) != items.end()) rows.push_back(row);
    }
    if (rows.empty() && grdDue.DataRowCount() > 0) rows.push_back(1);
    grdDue.SelectRows(rows);
}

const reminders::Due* frmRemind::AtRow(int row) const {
    if (row < 1 || row > grdDue.DataRowCount()) return nullptr;
    const auto found = places_.find(number::ToInt32(grdDue.Cell(row, kNumberColumn)));
    return found == places_.end() ? nullptr : &due_[found->second];
}

void frmRemind::CountOld() {
    const auto& [user, whose, now, firstLook, interval] = circumstances_;
    const std::tuple wanted{now.Date(), firstLook, whose};
    if (counted_ == wanted) return;
    const bool own = whose == reminders::Whose::Own;
    old_ = reminders::CountOld(session_.database, firstLook,
                               own ? std::optional<std::string_view>(user) : std::nullopt);
    counted_ = wanted;
}

void frmRemind::ShowOld() {
    lblOld.SetCaption(old_ == 0 ? std::string()
                                : session_.LoadText(RemindText::Old, std::to_string(old_)));
}

}  // namespace zv::windows

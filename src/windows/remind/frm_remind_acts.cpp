// What the user does with reminders: each act is for those that are selected.
#include <map>

#include "reminders/put_off.h"
#include "reminders/store_memory.h"
#include "session/long_work.h"
#include "session/marking.h"
#include "session/user_right.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {

using resources::RemindText;

namespace {

constexpr std::int16_t kCompletionRight = 4;

}  // namespace

std::set<std::int32_t> frmRemind::SelectedItems() const {
    std::set<std::int32_t> items;
    for (const reminders::Due& due : Selected()) items.insert(due.subject.item);
    return items;
}

std::vector<reminders::Due> frmRemind::Selected() const {
    std::vector<reminders::Due> selected;
    for (int row = 1; row <= grdDue.DataRowCount(); row++) {
        if (!grdDue.IsSelected(row)) continue;
        if (const reminders::Due* due = AtRow(row)) selected.push_back(*due);
    }
    return selected;
}

void frmRemind::SelectAll() {
    grdDue.SelectAll();
}

void frmRemind::ShowOwnTime() {
    const bool own = cboLater.ListIndex() >= static_cast<int>(reminders::kPutOffs.size());
    dtpLater.SetEnabled(own);
}

std::vector<reminders::Due> frmRemind::StillDue(const std::vector<reminders::Due>& wanted) {
    std::map<reminders::Key, reminders::Due> present;
    for (reminders::Due& due : LookNow().due) {
        const reminders::Key key = reminders::KeyOf(due.subject);
        present.emplace(key, std::move(due));
    }
    std::vector<reminders::Due> still;
    for (const reminders::Due& due : wanted) {
        // Generating gives a plan's item another number: the present one is meant.
        const auto found = present.find(reminders::KeyOf(due.subject));
        if (found != present.end()) still.push_back(found->second);
    }
    return still;
}

void frmRemind::ReportGone(std::size_t gone) {
    if (gone == 0) return;
    session_.windows.ShowMessage(session_.LoadText(RemindText::Gone, std::to_string(gone)),
                                 forms::box::kExclamation);
}

bool frmRemind::Agrees(RemindText question, std::size_t count) {
    // One is done by one key; several at once may be a slip.
    if (count < 2) return true;
    return session_.windows.AskCarefully(session_.LoadText(question, std::to_string(count)),
                                         forms::box::kOkCancel + forms::box::kQuestion) ==
           forms::Answer::Ok;
}

void frmRemind::Announce(const reminders::Due& due, ReminderAct act) {
    session_.Announce([id = due.subject.item, act](HostEvents& host) {
        host.ReminderActed(id, static_cast<std::int16_t>(act));
    });
}

void frmRemind::cmdDone_Click() {
    const std::vector<reminders::Due> wanted = Selected();
    if (wanted.empty() || !HasRight(session_, "mnuToolTask", kCompletionRight)) return;
    ForAll(wanted, {cmdDone.Caption(), ActingOnReminders::kMarksInPiece, RemindText::AskDone},
           [this](const std::vector<reminders::Due>& dues) {
               std::size_t marked = 0;
               for (const reminders::Due& due : dues) {
                   if (!Mark(due, items::ItemState::Done)) continue;
                   Announce(due, ReminderAct::Done);
                   marked++;
               }
               return marked;
           });
}

void frmRemind::cmdInHand_Click() {
    const std::vector<reminders::Due> wanted = Selected();
    if (wanted.empty() || !HasRight(session_, "mnuZjComp", kCompletionRight)) return;
    // Who works at it needs no reminder before the next morning.
    const auto morning =
        reminders::MomentOf(reminders::PutOff::TomorrowMorning, session_.machine.clock.Now());
    ForAll(wanted, {cmdInHand.Caption(), ActingOnReminders::kMarksInPiece},
           [&](const std::vector<reminders::Due>& dues) {
               std::vector<reminders::Due> marked;
               try {
                   for (const reminders::Due& due : dues) {
                       if (Mark(due, items::ItemState::InHand)) marked.push_back(due);
                   }
               } catch (...) {
                   Answer(marked, morning, ReminderAct::InHand);
                   throw;
               }
               Answer(marked, morning, ReminderAct::InHand);
               return marked.size();
           });
}

void frmRemind::ForAll(const std::vector<reminders::Due>& wanted, const HowDone& how,
                       const RemindersAct& act) {
    std::size_t gone = 0;
    ActsTogether together{PresentOf(session_)};
    const auto collected = [&](const std::vector<reminders::Due>& dues) {
        std::size_t acted = 0;
        session_.acts.Collect(together, [&] { acted = act(dues); });
        return acted;
    };
    // What the user agreed to is his, and of the store that he saw.
    const auto goesOn = [&] { return IsLoaded() && together.of == PresentOf(session_); };
    if (how.question && !Agrees(*how.question, wanted.size())) return;
    if (!goesOn()) return;
    try {
        ActingOnReminders acting(StillDue(wanted), how.inPiece, collected, goesOn);
        RunLongWork(session_, how.caption, acting);
        gone = wanted.size() - acting.Count() + acting.Gone();
    } catch (...) {
        session_.acts.KeepTogether(std::move(together));
        // What was done before the error is listed no more.
        if (IsLoaded()) LookAgain();
        throw;
    }
    session_.acts.KeepTogether(std::move(together));
    if (!IsLoaded()) return;
    LookAgain();
    ReportGone(gone);
}

bool frmRemind::Mark(const reminders::Due& due, items::ItemState state) {
    const reminders::Subject& subject = due.subject;
    MarkRequest request = Request(subject.item, state, session_.state.UserName);
    request.title = subject.title;
    request.before = StateAndDoer(Number(subject.state), subject.people.doer);
    return MarkItem(session_, std::move(request)) == Marking::Marked;
}

void frmRemind::cmdOpen_Click() {
    const std::vector<reminders::Due> wanted = Selected();
    if (wanted.empty() || !open_) return;
    const std::vector<reminders::Due> still = StillDue({wanted.front()});
    if (still.empty()) {
        LookAgain();
        return ReportGone(1);
    }
    const reminders::Subject& subject = still.front().subject;
    open_({subject.item, subject.kind, subject.title, subject.date.value_or(subject.from),
           subject.state});
    Announce(still.front(), ReminderAct::Open);
}

std::optional<DateTime> frmRemind::ChosenMoment() const {
    const DateTime now = session_.machine.clock.Now();
    const int choice = cboLater.ListIndex();
    const bool own = choice < 0 || choice >= static_cast<int>(reminders::kPutOffs.size());
    if (!own)
        return reminders::MomentOf(reminders::kPutOffs[static_cast<std::size_t>(choice)], now);
    const std::optional<DateTime>& moment = dtpLater.Value();
    if (!moment || !reminders::CanPutOffUntil(*moment, now)) return std::nullopt;
    return moment;
}

void frmRemind::cmdLater_Click() {
    const std::vector<reminders::Due> wanted = Selected();
    if (wanted.empty()) return;
    const std::optional<DateTime> until = ChosenMoment();
    if (!until) {
        session_.windows.ShowMessage(session_.LoadText(RemindText::NotLater),
                                     forms::box::kExclamation);
        return;
    }
    ForAll(wanted, {cmdLater.Caption(), ActingOnReminders::kAnswersInPiece},
           [&](const std::vector<reminders::Due>& dues) {
               Answer(dues, until, ReminderAct::Later);
               return dues.size();
           });
}

void frmRemind::cmdDismiss_Click() {
    const std::vector<reminders::Due> wanted = Selected();
    if (wanted.empty()) return;
    ForAll(wanted,
           {cmdDismiss.Caption(), ActingOnReminders::kAnswersInPiece, RemindText::AskDismiss},
           [this](const std::vector<reminders::Due>& dues) {
               Answer(dues, std::nullopt, ReminderAct::Dismiss);
               return dues.size();
           });
}

void frmRemind::Answer(const std::vector<reminders::Due>& dues, std::optional<DateTime> until,
                       ReminderAct act) {
    if (dues.empty()) return;
    std::map<reminders::Key, reminders::Answer> earlier;
    for (const reminders::Answer& answer : answers_) earlier.insert_or_assign(answer.key, answer);
    std::vector<reminders::Answer> answers;
    std::vector<reminders::Answer> before;
    std::vector<reminders::Key> without;  // those that had no answer
    for (const reminders::Due& due : dues) {
        answers.push_back({reminders::KeyOf(due.subject), until, session_.machine.clock.Now()});
        const auto found = earlier.find(answers.back().key);
        if (found != earlier.end())
            before.push_back(found->second);
        else
            without.push_back(answers.back().key);
    }
    const std::string user = session_.state.UserName;
    reminders::StoreMemory(session_.database, session_.settings).Keep(user, answers);
    for (const reminders::Due& due : dues) Announce(due, act);
    DoneAct done{.kind = changes::Act::Change,
                 .notice = resources::ChangeText::Answered,
                 .title = dues.front().subject.title,
                 // Who takes in hand has marked them, too.
                 .items = act == ReminderAct::InHand ? 0 : dues.size()};
    // Taken back when the window may be gone.
    done.back = [&session = session_, user, before, without] {
        reminders::StoreMemory memory(session.database, session.settings);
        memory.Keep(user, before);
        memory.Forget(user, without);
    };
    done.again = [&session = session_, user, answers] {
        reminders::StoreMemory(session.database, session.settings).Keep(user, answers);
    };
    session_.acts.Done(std::move(done));
}

}  // namespace zv::windows

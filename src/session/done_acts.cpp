#include "session/done_acts.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "items/item_row.h"
#include "plans/plan_row.h"
#include "resources/number_setting.h"
#include "session/session.h"
#include "session/store_client.h"

namespace zv {
namespace {

using changes::Act;
using changes::RowChange;
using resources::ChangeText;

/// Of what a box lists; it says how many more there are.
constexpr std::size_t kMostLines = 5;

// Deletions and additions of rows whose number or content is not known cannot be undone.
bool CanBeTakenBack(const DoneAct& act) {
    return std::all_of(act.rows.begin(), act.rows.end(), [](const RowChange& change) {
        return change.row != 0 && (change.before || change.after);
    });
}

bool ChangesSomething(const DoneAct& act) {
    const auto changes = [](const RowChange& change) {
        return !change.before || !change.after || !ChangedFields(change).empty();
    };
    return act.back || std::any_of(act.rows.begin(), act.rows.end(), changes);
}

// Thousands may be done at once, so none of them holds the next one.
std::function<void()> OneAfterAnother(std::vector<std::function<void()>> steps) {
    std::erase(steps, nullptr);
    if (steps.empty()) return {};
    return [steps = std::move(steps)] {
        for (const auto& step : steps) step();
    };
}

// A host learns of a plan as a whole.
const RowChange* PlanOf(const std::vector<RowChange>& rows) {
    const auto plan = std::find_if(rows.begin(), rows.end(), [](const RowChange& change) {
        return change.table == &plans::PlanTable();
    });
    return plan == rows.end() ? nullptr : &*plan;
}

std::int32_t ItemsAdded(const std::vector<RowChange>& rows) {
    return static_cast<std::int32_t>(
        std::count_if(rows.begin(), rows.end(), [](const RowChange& change) {
            return change.table == &items::ItemTable() && !change.before;
        }));
}

}  // namespace

UserAndStore PresentOf(const Session& session) {
    const store::ConnectionSettings* opened = session.database.OpenedWith();
    return {session.state.UserName, opened ? *opened : session.Settings()};
}

bool DoneActs::KeepsHistory() {
    return changes::History(session_.database).IsKept();
}

std::optional<changes::Fields> DoneActs::RowBefore(const changes::Table& table, std::int32_t row,
                                                   std::optional<changes::Fields> shown) {
    if (row == 0 || !KeepsHistory()) return shown;
    return changes::Load(session_.database, table, row);
}

void DoneActs::Done(DoneAct act) {
    if (act.title.empty() && !act.rows.empty()) act.title = TitleOf(act.rows.front());
    Record(act.kind, act.rows);
    if (collecting_) return collecting_->acts.push_back(std::move(act));
    Keep(std::move(act), false);
}

void DoneActs::Collect(ActsTogether& together, const std::function<void()>& act) {
    struct Collecting {
        Collecting(ActsTogether*& target, ActsTogether& now)
            : target_(target), former_(std::exchange(target, &now)) {}
        ~Collecting() { target_ = former_; }
        Collecting(const Collecting&) = delete;
        Collecting& operator=(const Collecting&) = delete;

     private:
        ActsTogether*& target_;
        ActsTogether* former_;
    } const collecting(collecting_, together);
    act();
}

void DoneActs::KeepTogether(ActsTogether together) {
    std::vector<DoneAct>& acts = together.acts;
    if (acts.empty() || together.of != PresentOf(session_)) return;
    std::vector<std::function<void()>> back;
    std::vector<std::function<void()>> again;
    std::size_t items = 0;
    for (DoneAct& act : acts) {
        back.push_back(std::move(act.back));
        again.push_back(std::move(act.again));
        items += act.items;
    }
    std::reverse(back.begin(), back.end());
    DoneAct whole = std::move(acts.front());
    if (items > 1) {
        whole.notice = ChangeText::Several;
        whole.title = std::to_string(items);
    }
    for (auto act = acts.begin() + 1; act != acts.end(); ++act) {
        std::move(act->rows.begin(), act->rows.end(), std::back_inserter(whole.rows));
    }
    whole.back = OneAfterAnother(std::move(back));
    whole.again = OneAfterAnother(std::move(again));
    Keep(std::move(whole), false);
}

void DoneActs::Keep(DoneAct act, bool again) {
    if (!CanBeTakenBack(act) || !ChangesSomething(act)) return;
    ForgetOthers();
    of_ = PresentOf(session_);
    std::string notice = NoticeOf(act);
    auto go = [this, act = std::move(act), again] { return GoBack(act, again); };
    if (again)
        session_.takeBack.AddAgain(nullptr, std::move(notice), std::move(go));
    else
        session_.takeBack.Add(nullptr, std::move(notice), std::move(go));
}

void DoneActs::ForgetOthers() {
    if (AreOfPresent()) return;
    session_.takeBack.Forget(nullptr);
    // Numbers mean something else there.
    renumbered_.clear();
}

std::string DoneActs::NoticeOf(const DoneAct& act) const {
    return resources::LoadText(act.notice, resources::SpokenLanguage(session_.state.Language),
                               act.title);
}

bool DoneActs::AreOfPresent() const {
    return of_ == PresentOf(session_);
}

bool DoneActs::CanTakeBack() const {
    return session_.takeBack.NewestIsOf(nullptr) && AreOfPresent();
}

bool DoneActs::CanDoAgain() const {
    return session_.takeBack.AnyAgain() && AreOfPresent();
}

std::optional<changes::TakenBack> DoneActs::TakeRowsBack(const DoneAct& act, Act record) {
    const std::vector<RowChange> rows = Renumbered(act.rows);
    const auto obstacles = changes::ObstaclesTo(session_.database, rows);
    if (!obstacles.empty()) {
        Say(act, obstacles);
        return std::nullopt;
    }
    changes::TakenBack back;
    try {
        changes::TakeBack(session_.database, rows, back);
        if (act.back) act.back();
    } catch (const RuntimeError&) {
        // It stays, and what is left of it can be taken back later.
        KeepNumbers(back);
        Record(record, back.rows);
        throw;
    }
    KeepNumbers(back);
    Record(record, back.rows);
    Announce(act.kind, back.rows);
    return back;
}

bool DoneActs::GoBack(const DoneAct& act, bool again) {
    const std::optional<changes::TakenBack> back = TakeRowsBack(act, Act::TakeBack);
    if (!back) return true;
    Keep({act.kind, act.notice, act.title, act.items, back->rows, act.again, act.back}, !again);
    ShowChangedRows(session_, back->rows);
    SayNumbers(*back);
    return true;
}

void DoneActs::Restore(const std::vector<RowChange>& deleted) {
    DoneAct act{.kind = Act::Restore, .notice = ChangeText::Restored, .rows = deleted};
    const std::optional<changes::TakenBack> back = TakeRowsBack(act, Act::Restore);
    if (!back) return;
    if (back->rows.empty()) {
        session_.windows.ShowMessage(session_.LoadText(ChangeText::AlreadyThere),
                                     forms::box::kInformation);
        return;
    }
    act.rows = back->rows;
    if (act.rows.size() > 1) act.notice = ChangeText::Several;
    act.title = act.rows.size() > 1 ? std::to_string(act.rows.size()) : TitleOf(act.rows.front());
    Keep(std::move(act), false);
    ShowChangedRows(session_, back->rows);
    SayNumbers(*back);
}

std::string DoneActs::LineOf(const DoneAct& act, const changes::Obstacle& obstacle) const {
    using Kind = changes::Obstacle::Kind;
    const RowChange& change = obstacle.change;
    std::string title = TitleOf(change);
    if (title.empty()) title = act.title;
    if (obstacle.kind == Kind::Gone) return session_.LoadText(ChangeText::GoneMeanwhile, title);
    if (obstacle.kind == Kind::Taken) return session_.LoadText(ChangeText::TakenMeanwhile, title);
    std::string names;
    for (const std::size_t i : obstacle.fields) {
        const items::Field* field = items::FindField(change.table->columns[i].name);
        if (change.table != &items::ItemTable() || field->box.empty()) continue;
        if (!names.empty()) names += ", ";
        names += field->caption.Text(session_.state.Language);
    }
    const std::string line = session_.LoadText(ChangeText::ChangedMeanwhile, title);
    return names.empty() ? line : line + " (" + names + ")";
}

void DoneActs::Say(const DoneAct& act, const std::vector<changes::Obstacle>& obstacles) const {
    const bool restores = act.kind == Act::Restore;
    const std::string text =
        session_.LoadText(restores ? ChangeText::CannotRestore : ChangeText::CannotTakeBack) +
        "\r\n\r\n" +
        FirstLines(obstacles.size(), [&](std::size_t i) { return LineOf(act, obstacles[i]); });
    session_.windows.ShowMessage(text, forms::box::kExclamation);
}

std::string DoneActs::FirstLines(std::size_t count,
                                 const std::function<std::string(std::size_t)>& line) const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < std::min(count, kMostLines); i++) lines.push_back(line(i));
    if (count > kMostLines) {
        lines.push_back(session_.LoadText(ChangeText::AndMore, std::to_string(count - kMostLines)));
    }
    return text::Join(lines, "\r\n");
}

void DoneActs::KeepNumbers(const changes::TakenBack& back) {
    for (const auto& [change, number] : back.renumbered) {
        renumbered_[{change.table, change.row}] = number;
    }
}

void DoneActs::SayNumbers(const changes::TakenBack& back) const {
    if (back.renumbered.empty()) return;
    const auto line = [&](std::size_t i) {
        const auto& [change, number] = back.renumbered[i];
        return resources::LoadText(ChangeText::OtherNumber, session_.state.Language,
                                   TitleOf(change), std::to_string(number));
    };
    session_.windows.ShowMessage(FirstLines(back.renumbered.size(), line),
                                 forms::box::kInformation);
}

std::vector<RowChange> DoneActs::Renumbered(std::vector<RowChange> rows) const {
    for (RowChange& change : rows) {
        for (auto found = renumbered_.find({change.table, change.row}); found != renumbered_.end();
             found = renumbered_.find({change.table, change.row})) {
            change.row = found->second;
        }
    }
    return rows;
}

void DoneActs::Announce(Act kind, const std::vector<RowChange>& back) {
    if (const RowChange* plan = PlanOf(back)) {
        const bool whole = kind == Act::Generate || !plan->before || !plan->after;
        if (!whole) return;
        return session_.Announce([id = plan->row, rows = ItemsAdded(back)](HostEvents& host) {
            host.PlanGenerated(id, rows);
        });
    }
    for (const RowChange& change : back) {
        const auto state = change.after ? (*change.after)[items::field::kState] : std::nullopt;
        session_.Announce([id = change.row, kind, isNew = !change.before, gone = !change.after,
                           state](HostEvents& host) {
            if (gone)
                host.ItemDeleted(id);
            else if (kind == Act::Mark && state)
                host.ItemDone(id, state->ToInt16());
            else
                host.ItemSaved(id, isNew);
        });
    }
}

void DoneActs::Record(Act kind, const std::vector<RowChange>& rows) {
    if (rows.empty()) return;
    try {
        if (!KeepsHistory()) return;
        changes::History history(session_.database);
        history.Write(session_.machine.clock.Now(), session_.state.UserName, kind, rows);
        ForgetOldRecords();
    } catch (const RuntimeError& error) {
        // The table may have been dropped while it was in use.
        session_.database.ForgetTables();
        if (error.Kind() == ErrorKind::NoTable) return;
        session_.windows.ShowMessage(
            session_.LoadText(ChangeText::NotRecorded, session_.Describe(error)),
            forms::box::kExclamation);
    }
}

void DoneActs::ForgetOldRecords() {
    const DateTime today = session_.machine.clock.Today();
    if (today == cleared_) return;
    const int days = session_.GetNumber(resources::kHistoryDays);
    if (days > 0) changes::History(session_.database).ForgetBefore(today.AddDays(-days));
    cleared_ = today;
}

}  // namespace zv

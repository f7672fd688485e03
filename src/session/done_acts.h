// What the user did to rows: put on record, and kept so that he can take it back.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/date_time.h"
#include "changes/history.h"
#include "changes/taking_back.h"
#include "resources/change_texts.h"
#include "store/connection_opener.h"

namespace zv {

class Session;

/// An act that is stored.
struct DoneAct {
    changes::Act kind = changes::Act::Change;
    resources::ChangeText notice = resources::ChangeText::Changed;
    std::string title{};    ///< of what it was done to; empty: that of the first row
    std::size_t items = 1;  ///< to so many; 0: to what another act was done to
    std::vector<changes::RowChange> rows{};
    /// What lies beside the rows: taken back with them and done again with them. May be empty.
    std::function<void()> back{};
    std::function<void()> again{};
};

/// Who works, and where. Acts belong to both.
struct UserAndStore {
    std::string user{};
    store::ConnectionSettings store{};

    bool operator==(const UserAndStore&) const = default;
};
UserAndStore PresentOf(const Session& session);

/// Acts that are one step for the user.
struct ActsTogether {
    UserAndStore of;
    std::vector<DoneAct> acts{};
};

class DoneActs {
 public:
    /// The session must outlive this.
    explicit DoneActs(Session& session) : session_(session) {}
    DoneActs(const DoneActs&) = delete;
    DoneActs& operator=(const DoneActs&) = delete;

    /// The database keeps a history, so that what a row holds is read before it is changed. Opens
    /// the connection; database errors reach the caller.
    bool KeepsHistory();
    /// A row before it is changed: as it is stored where there is a history, else as `shown` has
    /// it.
    std::optional<changes::Fields> RowBefore(const changes::Table& table, std::int32_t row,
                                             std::optional<changes::Fields> shown = {});

    /// Puts the act on record and keeps it. It is done whatever comes of that: a record that cannot
    /// be written is said in a box.
    void Done(DoneAct act);
    /// Only puts it on record: what a host did is not the user's to take back.
    void DoneForGood(const DoneAct& act) { Record(act.kind, act.rows); }

    /// What `act` does belongs to `together` and is no step of its own, also where it fails; what
    /// it throws reaches the caller.
    void Collect(ActsTogether& together, const std::function<void()>& act);
    /// They are taken back at once. Those of another user or store than the present one cannot be.
    void KeepTogether(ActsTogether together);

    /// Puts rows back that were deleted, in the order in which they are named, as an act of its
    /// own; what stands against it, and that there is nothing to be done, is said in a box.
    /// Database errors reach the caller.
    void Restore(const std::vector<changes::RowChange>& deleted);

    /// What was done by another user, or to another store, cannot be taken back any more.
    void ForgetOthers();

    /// The newest that can be taken back is an act of the present user.
    bool CanTakeBack() const;
    bool CanDoAgain() const;

 private:
    bool AreOfPresent() const;
    void Keep(DoneAct act, bool again);
    bool GoBack(const DoneAct& act, bool again);
    /// What was done to the rows; nothing where something stands against it, which was said.
    std::optional<changes::TakenBack> TakeRowsBack(const DoneAct& act, changes::Act record);
    void Say(const DoneAct& act, const std::vector<changes::Obstacle>& obstacles) const;
    /// A line for each of the first, and how many more there are.
    std::string FirstLines(std::size_t count,
                           const std::function<std::string(std::size_t)>& line) const;
    std::string LineOf(const DoneAct& act, const changes::Obstacle& obstacle) const;
    void KeepNumbers(const changes::TakenBack& back);
    void SayNumbers(const changes::TakenBack& back) const;
    void Announce(changes::Act kind, const std::vector<changes::RowChange>& back);
    void Record(changes::Act kind, const std::vector<changes::RowChange>& rows);
    void ForgetOldRecords();
    std::vector<changes::RowChange> Renumbered(std::vector<changes::RowChange> rows) const;
    std::string NoticeOf(const DoneAct& act) const;

    Session& session_;
    UserAndStore of_;                     ///< whose acts are kept
    ActsTogether* collecting_ = nullptr;  ///< null: each act is a step
    /// Rows that came back under another number, by table and former number.
    std::map<std::pair<const changes::Table*, std::int32_t>, std::int32_t> renumbered_;
    DateTime cleared_;  ///< the day on which old records were looked for last
};

}  // namespace zv

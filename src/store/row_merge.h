// What a save writes when somebody else has written the same row since it was read: three versions
// of a row - as read, as this user changed it, as it is stored - become one.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

#include "store/row_values.h"

namespace zv::store {

/// What the user changed: nothing for a field that was left as it was shown.
using RowChanges = std::vector<std::optional<Value>>;

/// What differs between the fields as they were shown and as they are entered. A field without an
/// entered value is not changed. Values are compared as texts, so a missing one equals an empty
/// one.
RowChanges ChangesOf(const RowChanges& shown, const RowChanges& entered);

/// Fields that mean something only together form a group, which comes from one version as a whole.
class RowMerge {
 public:
    /// The group of a field that is this user's at every save and never asked about.
    static constexpr std::size_t kAlwaysOwn = static_cast<std::size_t>(-1);
    enum class Version { Own, Stored };

    /// `groups` holds the group of each field; all three are of one length.
    RowMerge(std::vector<std::size_t> groups, RowValues asRead, RowChanges changes);

    /// The groups that this user changed and somebody else too, to something else, in ascending
    /// order; without those that were decided about while they held what they hold now.
    std::vector<std::size_t> Conflicts(const RowValues& stored) const;
    /// Which version a group in conflict takes as long as it holds what `stored` does.
    void Decide(std::size_t group, Version version, const RowValues& stored);

    /// The row to write over `stored`. A conflict that is not decided keeps what is stored.
    RowValues Merged(const RowValues& stored) const;
    /// The row as this user would have it: what was read with the changes in it.
    const RowValues& Own() const { return own_; }
    /// Whether what is written holds something that somebody else has stored meanwhile.
    bool TakesStored(const RowValues& stored) const;
    /// The fields of a group that differ between the own version and the stored one.
    std::vector<std::size_t> Differences(std::size_t group, const RowValues& stored) const;

 private:
    struct Decision {
        Version version;
        RowValues stored;
    };

    bool ChangedByUser(std::size_t group) const;
    bool SameInGroup(std::size_t group, const RowValues& one, const RowValues& other) const;
    bool TakesOwn(std::size_t group, const RowValues& stored) const;
    const Decision* DecisionOn(std::size_t group, const RowValues& stored) const;

    std::vector<std::size_t> groups_;
    RowValues asRead_;
    RowChanges changes_;
    RowValues own_;
    std::map<std::size_t, Decision> decisions_;
};

}  // namespace zv::store

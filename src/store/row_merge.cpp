#include "store/row_merge.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zv::store {
namespace {

bool Alike(const Value& one, const Value& other) {
    return one == other || one.ToText() == other.ToText();
}

}  // namespace

RowChanges ChangesOf(const RowChanges& shown, const RowChanges& entered) {
    RowChanges changes = entered;
    for (std::size_t i = 0; i < changes.size(); i++) {
        if (changes[i] && shown[i] && Alike(*changes[i], *shown[i])) changes[i].reset();
    }
    return changes;
}

RowMerge::RowMerge(std::vector<std::size_t> groups, RowValues asRead, RowChanges changes)
    : groups_(std::move(groups)),
      asRead_(std::move(asRead)),
      changes_(std::move(changes)),
      own_(asRead_) {
    for (std::size_t i = 0; i < own_.size(); i++) {
        if (changes_[i]) own_[i] = *changes_[i];
    }
}

bool RowMerge::ChangedByUser(std::size_t group) const {
    for (std::size_t i = 0; i < groups_.size(); i++) {
        if (groups_[i] == group && changes_[i]) return true;
    }
    return false;
}

bool RowMerge::SameInGroup(std::size_t group, const RowValues& one, const RowValues& other) const {
    for (std::size_t i = 0; i < groups_.size(); i++) {
        if (groups_[i] == group && !Alike(one[i], other[i])) return false;
    }
    return true;
}

const RowMerge::Decision* RowMerge::DecisionOn(std::size_t group, const RowValues& stored) const {
    const auto found = decisions_.find(group);
    if (found == decisions_.end() || !SameInGroup(group, found->second.stored, stored)) {
        return nullptr;
    }
    return &found->second;
}

bool RowMerge::TakesOwn(std::size_t group, const RowValues& stored) const {
    if (group == kAlwaysOwn) return true;
    if (!ChangedByUser(group)) return false;
    if (SameInGroup(group, asRead_, stored)) return true;
    const Decision* decision = DecisionOn(group, stored);
    return decision && decision->version == Version::Own;
}

std::vector<std::size_t> RowMerge::Conflicts(const RowValues& stored) const {
    std::vector<std::size_t> conflicts;
    for (const std::size_t group : std::set<std::size_t>(groups_.begin(), groups_.end())) {
        if (group == kAlwaysOwn || !ChangedByUser(group)) continue;
        if (SameInGroup(group, asRead_, stored) || SameInGroup(group, own_, stored)) continue;
        if (!DecisionOn(group, stored)) conflicts.push_back(group);
    }
    return conflicts;
}

void RowMerge::Decide(std::size_t group, Version version, const RowValues& stored) {
    decisions_.insert_or_assign(group, Decision{version, stored});
}

RowValues RowMerge::Merged(const RowValues& stored) const {
    RowValues merged = stored;
    for (std::size_t i = 0; i < merged.size(); i++) {
        // Within an own group an untouched field keeps its stored form, too.
        if (TakesOwn(groups_[i], stored) && !Alike(merged[i], own_[i])) merged[i] = own_[i];
    }
    return merged;
}

bool RowMerge::TakesStored(const RowValues& stored) const {
    return std::ranges::any_of(groups_, [&](std::size_t group) {
        return !TakesOwn(group, stored) && !SameInGroup(group, asRead_, stored);
    });
}

std::vector<std::size_t> RowMerge::Differences(std::size_t group, const RowValues& stored) const {
    std::vector<std::size_t> fields;
    for (std::size_t i = 0; i < groups_.size(); i++) {
        if (groups_[i] == group && !Alike(own_[i], stored[i])) fields.push_back(i);
    }
    return fields;
}

}  // namespace zv::store

// Three versions of a row become one.
#include "store/row_merge.h"

#include <gtest/gtest.h>

#include <random>

namespace zv::store {
namespace {

using Groups = std::vector<std::size_t>;
using Version = RowMerge::Version;

/// Five fields: the first two belong together, the last one is this user's at every save.
const Groups kGroups{0, 0, 1, 2, RowMerge::kAlwaysOwn};
const RowValues kAsRead{1, "card", "title", "content", "one"};

RowMerge Change(RowChanges changes) {
    changes.resize(kGroups.size());
    changes[4] = Value("me");
    return {kGroups, kAsRead, std::move(changes)};
}

RowValues Stored(std::size_t field, Value value) {
    RowValues row = kAsRead;
    row[field] = std::move(value);
    return row;
}

TEST(RowMerge, AnUntouchedFieldKeepsWhatAnotherUserStored) {
    const RowMerge merge = Change({{}, {}, Value("mine")});
    const RowValues stored = Stored(3, "theirs");
    EXPECT_TRUE(merge.Conflicts(stored).empty());
    EXPECT_EQ(merge.Merged(stored), (RowValues{1, "card", "mine", "theirs", "me"}));
    EXPECT_TRUE(merge.TakesStored(stored));
}

TEST(RowMerge, WithoutAnotherUserTheChangesAreWritten) {
    const RowMerge merge = Change({{}, Value("other card"), Value("mine")});
    EXPECT_TRUE(merge.Conflicts(kAsRead).empty());
    EXPECT_EQ(merge.Merged(kAsRead), (RowValues{1, "other card", "mine", "content", "me"}));
    EXPECT_FALSE(merge.TakesStored(kAsRead));
}

TEST(RowMerge, WhatBothChangedIsAskedAbout) {
    RowMerge merge = Change({{}, {}, Value("mine")});
    const RowValues stored = Stored(2, "theirs");
    EXPECT_EQ(merge.Conflicts(stored), Groups{1});
    EXPECT_EQ(merge.Differences(1, stored), Groups{2});
    EXPECT_EQ(merge.Merged(stored)[2], Value("theirs")) << "undecided, nothing is overwritten";
    merge.Decide(1, Version::Own, stored);
    EXPECT_TRUE(merge.Conflicts(stored).empty());
    EXPECT_EQ(merge.Merged(stored)[2], Value("mine"));
    merge.Decide(1, Version::Stored, stored);
    EXPECT_EQ(merge.Merged(stored)[2], Value("theirs"));
}

TEST(RowMerge, TheSameChangeByBothIsNoConflict) {
    const RowMerge merge = Change({{}, {}, Value("same")});
    EXPECT_TRUE(merge.Conflicts(Stored(2, "same")).empty());
    EXPECT_EQ(merge.Merged(Stored(2, "same"))[2], Value("same"));
}

TEST(RowMerge, AGroupComesFromOneVersion) {
    RowMerge merge = Change({Value(2)});
    // They changed the one field, this user the other one.
    const RowValues stored = Stored(1, "their card");
    EXPECT_EQ(merge.Conflicts(stored), Groups{0});
    EXPECT_EQ(merge.Differences(0, stored), (Groups{0, 1}));
    merge.Decide(0, Version::Own, stored);
    EXPECT_EQ(merge.Merged(stored), (RowValues{2, "card", "title", "content", "me"}));
    merge.Decide(0, Version::Stored, stored);
    EXPECT_EQ(merge.Merged(stored), (RowValues{1, "their card", "title", "content", "me"}));
}

TEST(RowMerge, ADecisionHoldsForWhatItWasMadeAbout) {
    RowMerge merge = Change({{}, {}, Value("mine")});
    merge.Decide(1, Version::Own, Stored(2, "theirs"));
    EXPECT_EQ(merge.Conflicts(Stored(2, "third")), Groups{1});
    EXPECT_EQ(merge.Merged(Stored(2, "third"))[2], Value("third"));
    // Put back to what was read there is nothing to decide.
    EXPECT_TRUE(merge.Conflicts(kAsRead).empty());
    EXPECT_EQ(merge.Merged(kAsRead)[2], Value("mine"));
}

TEST(RowMerge, WhatIsAlwaysOwnIsNeverAskedAbout) {
    const RowMerge merge = Change({});
    EXPECT_TRUE(merge.Conflicts(Stored(4, "they")).empty());
    EXPECT_EQ(merge.Merged(Stored(4, "they"))[4], Value("me"));
    EXPECT_FALSE(merge.TakesStored(Stored(4, "they")));
}

TEST(RowMerge, AMissingValueAndAnEmptyTextAreAlike) {
    const RowMerge merge(Groups{0}, {Value()}, {Value("mine")});
    EXPECT_TRUE(merge.Conflicts({Value("")}).empty());
    EXPECT_EQ(merge.Merged({Value("")}), RowValues{"mine"});
    const RowMerge untouched(Groups{0}, {Value()}, {std::nullopt});
    EXPECT_EQ(untouched.Merged({Value()}), RowValues{Value()}) << "what is missing stays missing";
}

TEST(RowChanges, AreWhatDiffersFromWhatWasShown) {
    const RowChanges shown{Value(0), Value("a"), Value("b"), std::nullopt, Value(1)};
    const RowChanges entered{Value("0"), Value("a"), Value("c"), Value(2), std::nullopt};
    EXPECT_EQ(ChangesOf(shown, entered),
              (RowChanges{std::nullopt, std::nullopt, Value("c"), Value(2), std::nullopt}));
}

// Whatever three versions there are: nothing that only one of them changed is lost, and nothing
// that both changed is settled without a decision.
TEST(RowMerge, LosesNothingWhateverTheVersionsAre) {
    std::mt19937 random(7);
    const auto pick = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    for (int round = 0; round < 20000; round++) {
        const std::size_t fields = 1 + static_cast<std::size_t>(pick(6));
        Groups groups;
        RowValues asRead, stored;
        RowChanges changes;
        for (std::size_t i = 0; i < fields; i++) {
            groups.push_back(static_cast<std::size_t>(pick(3)));
            asRead.emplace_back(pick(3));
            stored.push_back(pick(2) == 0 ? asRead[i] : Value(pick(3)));
            changes.push_back(pick(2) == 0 ? std::nullopt : std::optional<Value>(pick(3)));
        }
        changes = ChangesOf({asRead.begin(), asRead.end()}, changes);
        RowMerge merge(groups, asRead, changes);
        const Groups conflicts = merge.Conflicts(stored);
        for (const std::size_t group : conflicts) merge.Decide(group, Version::Own, stored);
        EXPECT_TRUE(merge.Conflicts(stored).empty());
        const RowValues merged = merge.Merged(stored);
        for (std::size_t group = 0; group < 3; group++) {
            bool mine = false, theirs = false, isOwn = true, isStored = true, agree = true;
            for (std::size_t i = 0; i < fields; i++) {
                if (groups[i] != group) continue;
                const Value own = changes[i].value_or(asRead[i]);
                mine = mine || changes[i];
                theirs = theirs || stored[i] != asRead[i];
                agree = agree && own == stored[i];
                isOwn = isOwn && merged[i] == own;
                isStored = isStored && merged[i] == stored[i];
            }
            const bool asked =
                std::find(conflicts.begin(), conflicts.end(), group) != conflicts.end();
            ASSERT_EQ(asked, mine && theirs && !agree);
            ASSERT_TRUE(mine ? isOwn : isStored);
        }
    }
}

}  // namespace
}  // namespace zv::store

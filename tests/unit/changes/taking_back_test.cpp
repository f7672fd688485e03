// Acts taken back, on every engine.
#include "changes/taking_back.h"

#include "doubles/numbering_connection.h"
#include "plans/plan_row.h"
#include "stored_items.h"

namespace zv::changes {
namespace {

using Kind = Obstacle::Kind;

class TakingBackTest : public StoredItemsTest {
 protected:
    /// Nothing stands against it, and what was done.
    std::vector<RowChange> Back(const std::vector<RowChange>& changes) {
        EXPECT_TRUE(ObstaclesTo(database_, changes).empty());
        TakenBack done;
        TakeBack(database_, changes, done);
        return done.rows;
    }
    std::vector<Kind> KindsOfObstacles(const std::vector<RowChange>& changes) {
        std::vector<Kind> kinds;
        for (const Obstacle& obstacle : ObstaclesTo(database_, changes)) {
            kinds.push_back(obstacle.kind);
        }
        return kinds;
    }
};

ZV_ON_EVERY_ENGINE(TakingBackTest);

TEST_P(TakingBackTest, ADeletedRowComesBackWholeUnderItsNumber) {
    Insert(41, "one");
    Insert(42, "two");
    const auto before = Row(41);
    const RowChange deletion = Deletion(41);
    Run("delete from tTaskList where fID=41");
    const auto done = Back({deletion});
    EXPECT_EQ(Row(41), before);
    EXPECT_EQ(Titles(), (Strings{"41 one", "42 two"}));
    ASSERT_EQ(done.size(), 1u);
    EXPECT_EQ(done[0].row, 41);
    EXPECT_FALSE(done[0].before);
    EXPECT_TRUE(done[0].after);
}

TEST_P(TakingBackTest, WhatWasTakenBackCanBeDoneAgain) {
    Insert(41, "one");
    const RowChange deletion = Deletion(41);
    Run("delete from tTaskList where fID=41");
    const auto back = Back({deletion});
    const auto again = Back(back);
    EXPECT_EQ(Titles(), Strings());
    Back(again);
    EXPECT_EQ(Titles(), Strings{"41 one"});
}

TEST_P(TakingBackTest, AnAddedRowGoes) {
    Insert(41, "one");
    RowChange addition = Reversed(Deletion(41));
    const auto done = Back({addition});
    EXPECT_EQ(Titles(), Strings());
    ASSERT_EQ(done.size(), 1u);
    EXPECT_FALSE(done[0].after);
}

TEST_P(TakingBackTest, OnlyTheFieldsThatWereChangedAreWritten) {
    Insert(41, "new");
    Run("update tTaskList set fGuest='somebody' where fID=41");
    Back({Retitled(41, "old", "new")});
    EXPECT_EQ(Titles(), Strings{"41 old"});
    EXPECT_EQ((*Row(41))[items::field::kGuest]->ToText(), "somebody");
}

TEST_P(TakingBackTest, TheLastChangeIsTakenBackFirst) {
    Insert(41, "three");
    Back({Retitled(41, "two", "three")});
    EXPECT_EQ(Titles(), Strings{"41 two"});
    // Several of one row stand against each other unless they are taken back in turn.
    TakenBack done;
    TakeBack(database_, {Retitled(41, "one", "first"), Retitled(41, "first", "two")}, done);
    EXPECT_EQ(Titles(), Strings{"41 one"});
    EXPECT_EQ(done.rows.size(), 2u);
}

TEST_P(TakingBackTest, SaysWhatStandsAgainstIt) {
    Insert(41, "theirs");
    Insert(43, "another");
    RowChange deletion = Retitled(43, "mine", "");
    deletion.after.reset();
    EXPECT_EQ(KindsOfObstacles({Retitled(41, "old", "new"), Retitled(42, "old", "new"), deletion}),
              (std::vector{Kind::Changed, Kind::Gone, Kind::Taken}));
    const auto obstacles = ObstaclesTo(database_, {Retitled(41, "old", "new")});
    ASSERT_EQ(obstacles.size(), 1u);
    EXPECT_EQ(obstacles[0].fields, std::vector<std::size_t>{items::field::kTitle});
}

TEST_P(TakingBackTest, LeavesAloneWhatSomebodyChangedSinceTheLook) {
    Insert(41, "theirs");
    Insert(43, "new");
    TakenBack done;
    TakeBack(database_, {Retitled(41, "old", "new"), Retitled(43, "old", "new")}, done);
    EXPECT_EQ(Titles(), (Strings{"41 theirs", "43 old"}));
    EXPECT_EQ(done.rows.size(), 1u);
}

TEST_P(TakingBackTest, APlanComesBackUnderItsNumber) {
    Run("insert into tTaskSet(TaskID,taskTitle,tbegin,CircleType) "
        "values(7,'plan','2003-03-07',1)");
    const RowChange deletion{&plans::PlanTable(), 7, Load(database_, plans::PlanTable(), 7),
                             std::nullopt};
    ASSERT_TRUE(deletion.before);
    Run("delete from tTaskSet");
    Back({deletion});
    EXPECT_EQ(Load(database_, plans::PlanTable(), 7), deletion.before);
}

TEST_P(TakingBackTest, WhatIsAsItWasBeforeIsLeftAlone) {
    Insert(41, "old");
    const RowChange deletion = Deletion(41);
    EXPECT_TRUE(Back({Retitled(41, "old", "new")}).empty());
    EXPECT_TRUE(Back({deletion}).empty()) << "somebody put it back";
    Run("delete from tTaskList");
    EXPECT_TRUE(Back({Reversed(deletion)}).empty()) << "somebody deleted it, too";
}

TEST_P(TakingBackTest, ARowComesBackUnderAnotherNumberWhereTheEngineTakesNone) {
    Insert(41, "one");
    const RowChange deletion = Deletion(41);
    Run("delete from tTaskList where fID=41");
    opener_.open = [this](const store::ConnectionSettings&) {
        return std::make_unique<doubles::NumberingConnection>(Another());
    };
    database_.Leave();
    TakenBack done;
    TakeBack(database_, {deletion}, done);
    ASSERT_EQ(done.renumbered.size(), 1u);
    EXPECT_EQ(done.renumbered[0].change.row, 41);
    EXPECT_NE(done.renumbered[0].number, 41);
    ASSERT_EQ(done.rows.size(), 1u);
    EXPECT_EQ(done.rows[0].row, done.renumbered[0].number);
    EXPECT_EQ(Row(done.rows[0].row), deletion.before);
}

TEST_P(TakingBackTest, ARefusedConnectionReachesTheCaller) {
    const RowChange change = Retitled(41, "old", "new");
    database_.Leave();
    RefuseConnections();
    TakenBack done;
    EXPECT_THROW(ObstaclesTo(database_, {change}), RuntimeError);
    EXPECT_THROW(TakeBack(database_, {change}, done), RuntimeError);
    EXPECT_TRUE(done.rows.empty());
}

}  // namespace
}  // namespace zv::changes

// Which store counts when host and user disagree.
#include "session/store_choice.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

class StoreChoiceTest : public testing::Test {
 protected:
    StoreChoiceTest() {
        state.UserPath = "host.db";
        HostSetsKind(state, 0);
    }
    std::string Used() const { return state.UserPath.ForOwner(); }

    ControlState state;
};

TEST_F(StoreChoiceTest, WithoutAChoiceTheHostsPathAndKindCountAtOnce) {
    HostSetsPath(state, store::ConnectionText("next.db"));
    EXPECT_EQ(Used(), "next.db");
    HostSetsKind(state, 2);
    EXPECT_EQ(state.SQLData, 2);
    EXPECT_EQ(state.hostSQLData, 2);
}

TEST_F(StoreChoiceTest, AChosenPathStaysWhileTheHostRepeatsItsOwn) {
    ChoosePath(state, store::ConnectionText("mine.db"));
    HostSetsPath(state, store::ConnectionText("host.db"));
    EXPECT_EQ(Used(), "mine.db");
    HostSetsPath(state, store::ConnectionText("next.db"));
    EXPECT_EQ(Used(), "next.db");
    EXPECT_FALSE(state.storeChoice.path);
    EXPECT_FALSE(state.storeChoice.hostPath);
    // What counts is the last path of the host, not the one that the choice replaced.
    RestoreHostPath(state);
    EXPECT_EQ(Used(), "next.db");
}

TEST_F(StoreChoiceTest, AnEmptyPathStandsForTheHosts) {
    ChoosePath(state, store::ConnectionText("mine.db"));
    ChoosePath(state, store::ConnectionText(""));
    EXPECT_EQ(Used(), "host.db");
    // It is a choice all the same: the host only repeats what it has set.
    HostSetsPath(state, store::ConnectionText("host.db"));
    EXPECT_TRUE(state.storeChoice.path);
    HostSetsPath(state, store::ConnectionText("next.db"));
    EXPECT_EQ(Used(), "next.db");
}

TEST_F(StoreChoiceTest, AfterSeveralPathsTheHostsComesBack) {
    ReplacePath(state, store::ConnectionText("first.db"));
    ReplacePath(state, store::ConnectionText("second.db"));
    EXPECT_EQ(Used(), "second.db");
    RestoreHostPath(state);
    EXPECT_EQ(Used(), "host.db");
    EXPECT_FALSE(state.storeChoice.hostPath);
    RestoreHostPath(state);
    EXPECT_EQ(Used(), "host.db");
}

TEST_F(StoreChoiceTest, AChosenKindStaysWhileTheHostRepeatsItsOwn) {
    ChooseKind(state, 1);
    EXPECT_EQ(state.hostSQLData, 0);
    HostSetsKind(state, 0);
    EXPECT_EQ(state.SQLData, 1);
    HostSetsKind(state, 2);
    EXPECT_EQ(state.SQLData, 2);
    // The choice has ended with that: what the host sets counts again.
    HostSetsKind(state, 2);
    state.SQLData = 5;
    HostSetsKind(state, 2);
    EXPECT_EQ(state.SQLData, 2);
}

TEST_F(StoreChoiceTest, ForgottenChoicesLeaveWhatTheHostSet) {
    ChoosePath(state, store::ConnectionText("mine.db"));
    ChooseKind(state, 1);
    ForgetChoices(state);
    EXPECT_EQ(Used(), "host.db");
    EXPECT_EQ(state.SQLData, 0);
    EXPECT_FALSE(state.storeChoice.path);
    EXPECT_FALSE(state.storeChoice.kind);
    EXPECT_FALSE(state.storeChoice.hostPath);
}

TEST_F(StoreChoiceTest, WhereOnlyAKindWasChosenThePathOfTheHostComesBackWithIt) {
    ReplacePath(state, store::ConnectionText("workstation.db"));
    ForgetChoices(state);
    EXPECT_EQ(Used(), "workstation.db");
    ChooseKind(state, 1);
    ForgetChoices(state);
    EXPECT_EQ(Used(), "host.db");
    EXPECT_EQ(state.SQLData, 0);
}

TEST_F(StoreChoiceTest, ATentativeChoiceIsTakenBackUnlessItIsKept) {
    ChoosePath(state, store::ConnectionText("before.db"));
    {
        const TentativeChoice tentative(state);
        ChoosePath(state, store::ConnectionText("mine.db"));
        ChooseKind(state, 1);
    }
    EXPECT_EQ(Used(), "before.db");
    EXPECT_EQ(state.SQLData, 0);
    EXPECT_FALSE(state.storeChoice.kind);
    EXPECT_EQ(state.storeChoice.path, store::ConnectionText("before.db"));
    EXPECT_EQ(state.storeChoice.hostPath, store::ConnectionText("host.db"));
    {
        TentativeChoice tentative(state);
        ChoosePath(state, store::ConnectionText("mine.db"));
        ChooseKind(state, 1);
        tentative.Keep();
    }
    EXPECT_EQ(Used(), "mine.db");
    EXPECT_EQ(state.SQLData, 1);
    EXPECT_EQ(state.storeChoice.kind, 1);
}

}  // namespace
}  // namespace zv

// Acts that are taken back together.
#include "session/done_acts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "application/test_application.h"
#include "changes/row_change.h"
#include "doubles/numbering_connection.h"
#include "items/item_row.h"

namespace zv {
namespace {

TEST(DoneActs, AnyNumberDoneTogetherGoesBackInReverseAndAgainInOrder) {
    constexpr int kMany = 200'000;
    test::TestApplication stage;
    std::vector<int> played;
    ActsTogether together{PresentOf(stage.session)};
    stage.session.acts.Collect(together, [&] {
        for (int i = 0; i < kMany; i++) {
            DoneAct act;
            act.back = [&played, i] { played.push_back(i); };
            act.again = act.back;
            stage.session.acts.Done(std::move(act));
        }
    });
    stage.session.acts.KeepTogether(std::move(together));
    std::vector<int> order(kMany);
    std::iota(order.begin(), order.end(), 0);
    stage.session.takeBack.DoAgain();
    EXPECT_TRUE(played.empty()) << "nothing was taken back yet";
    stage.session.takeBack.TakeNewest();
    EXPECT_TRUE(std::equal(played.rbegin(), played.rend(), order.begin(), order.end()));
    played.clear();
    stage.session.takeBack.DoAgain();
    EXPECT_EQ(played, order);
}

/// Deleted items on an engine that gives each row a number of its own.
class NumberedByTheEngine : public testing::Test {
 protected:
    void DeleteItems(int count) {
        DoneAct act{.kind = changes::Act::Delete};
        for (int i = 1; i <= count; i++) {
            const std::string number = std::to_string(i);
            stage.Sql("insert into tTaskList(fID,fType,taskTitle,tDone) values(" + number +
                      ",0,'item " + number + "',0)");
            act.rows.push_back({&items::ItemTable(), i,
                                changes::Load(stage.session.database, items::ItemTable(), i)});
        }
        // The numbers that the engine gives are others.
        stage.Sql("delete from tTaskList; insert into tTaskList(fID,tDone) values(900,1)");
        stage.session.acts.Done(std::move(act));
        stage.opener.open = [](const store::ConnectionSettings& settings) {
            return std::make_unique<doubles::NumberingConnection>(
                doubles::RecordingOpener().Open(settings));
        };
        stage.session.database.Leave();
    }
    std::string Open() { return stage.Query("select count(*) from tTaskList where tDone=0"); }

    test::TestApplication stage;
};

TEST_F(NumberedByTheEngine, WhatComesBackUnderOtherNumbersIsSaidInOneBox) {
    DeleteItems(7);
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(Open(), "7");
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_NE(stage.dialogs.messages[0].find("[item 7]"), std::string::npos);
    EXPECT_NE(stage.dialogs.messages[0].find("还有 2 项"), std::string::npos);
}

TEST_F(NumberedByTheEngine, AfterAnErrorHalfWayTheRestComesBackOnce) {
    DeleteItems(3);
    // The last one comes back first.
    stage.statements.FailRow(2);
    stage.windows.FromUser([&] { stage.session.takeBack.TakeNewest(); });
    EXPECT_EQ(Open(), "1");
    stage.windows.FromUser([&] { stage.session.takeBack.TakeNewest(); });
    EXPECT_EQ(Open(), "3");
    EXPECT_EQ(stage.Query("select group_concat(taskTitle) from (select taskTitle from tTaskList "
                          "where tDone=0 order by taskTitle)"),
              "item 1,item 2,item 3");
}

}  // namespace
}  // namespace zv

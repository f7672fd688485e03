// What comes of two users who do things to the same rows at the same time.
#include <memory>

#include "workstation.h"

namespace zv::users {
namespace {

using store::EngineKind;
using store::LockType;

constexpr int kDays = 10;

class SeveralUsers : public ::testing::TestWithParam<EngineKind> {
 protected:
    void SetUp() override {
        if (const std::string reason = store::WhyMissing(GetParam()); !reason.empty()) {
            GTEST_SKIP() << "engine " << store::TraitsOf(GetParam()).name
                         << " is missing: " << reason;
        }
        database_ = store::MakeTestDatabase(GetParam());
        Run("insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,Type,"
            "TypeValue,Content) values(7,'plan','2003-03-01','2003-03-10',2,1,1,1,'')");
        Run("insert into tTaskList(fType,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,"
            "tDone) values(0,0,'shared','first','2003-03-07','2003-03-07','2003-03-07',0)");
        // A process is split off before a connection brings threads along.
        one_ = std::make_unique<Workstation>(*database_, GetParam(), "one");
        other_ = std::make_unique<Workstation>(*database_, GetParam(), "other");
        one_->Do("seek shared");
        other_->Do("seek shared");
    }
    void TearDown() override {
        one_.reset();
        other_.reset();
    }

    void Run(const std::string& sql) { database_->Connect()->Execute(sql); }
    std::string Get(const std::string& sql) {
        const auto connection = database_->Connect();
        return connection->Open(sql, store::CursorType::ForwardOnly, LockType::ReadOnly)
            ->Field(0)
            .ToText();
    }
    std::string Content() { return Get("select fContent from tTaskList where taskTitle='shared'"); }

    std::unique_ptr<store::TestDatabase> database_;
    std::unique_ptr<Workstation> one_;
    std::unique_ptr<Workstation> other_;
};

TEST_P(SeveralUsers, SeeWhatOthersDidAtTheNextRefill) {
    one_->Do("add shared-new text");
    EXPECT_EQ(other_->Do("shows shared-new"), "no");
    other_->Do("seek shared");
    EXPECT_EQ(other_->Do("shows shared-new"), "yes");
    other_->Do("delete shared-new");
    EXPECT_EQ(one_->Do("shows shared-new"), "yes");
    one_->Do("seek shared");
    EXPECT_EQ(one_->Do("shows shared-new"), "no");
}

TEST_P(SeveralUsers, TheLaterUserToSaveIsAskedAndMayKeepWhatIsThere) {
    one_->Do("open shared mine");
    other_->Do("open shared theirs");
    EXPECT_EQ(other_->Do("save").substr(0, 2), "0|");
    EXPECT_EQ(Content(), "theirs");
    const std::string question = one_->Do("save cancel");
    EXPECT_NE(question.find("theirs"), std::string::npos) << question;
    EXPECT_NE(question.find("mine"), std::string::npos) << question;
    EXPECT_EQ(Content(), "theirs");
    // The editor is still open with what was typed; the next time the answer may be another.
    one_->Do("save yes");
    EXPECT_EQ(Content(), "mine");
}

TEST_P(SeveralUsers, FieldsThatOnlyOneOfThemChangedAreBothStored) {
    one_->Do("open shared mine");
    Run("update tTaskList set fOther2='theirs',tDone=2,tDoneMan='other',fGuest='guest' "
        "where taskTitle='shared'");
    EXPECT_EQ(one_->Do("save"), "0|[shared]: 修改完毕 ！");
    EXPECT_EQ(Content(), "mine");
    EXPECT_EQ(Get("select fOther2 from tTaskList where taskTitle='shared'"), "theirs");
    EXPECT_EQ(Get("select tDone from tTaskList where taskTitle='shared'"), "2");
    EXPECT_EQ(Get("select tDoneMan from tTaskList where taskTitle='shared'"), "other");
    EXPECT_EQ(Get("select fGuest from tTaskList where taskTitle='shared'"), "guest");
    EXPECT_EQ(Get("select fUser from tTaskList where taskTitle='shared'"), "one");
}

TEST_P(SeveralUsers, AUserWhoKeepsWhatIsThereStillStoresTheRest) {
    one_->Do("open shared mine");
    other_->Do("open shared theirs");
    other_->Do("save");
    one_->Do("save no");
    EXPECT_EQ(Content(), "theirs");
    EXPECT_EQ(Get("select fUser from tTaskList where taskTitle='shared'"), "one");
}

TEST_P(SeveralUsers, TheLaterUserToSaveAPlanIsAskedAndMayKeepWhatIsThere) {
    Run("update tTaskSet set SetMan='boss'");
    one_->Do("open-plan 7 mine");
    other_->Do("open-plan 7 theirs");
    EXPECT_EQ(other_->Do("save-plan"), "64|任务修改完毕!");
    const std::string question = one_->Do("save-plan cancel");
    EXPECT_NE(question.find("现存 [theirs], 您的 [mine]"), std::string::npos) << question;
    EXPECT_EQ(Get("select Content from tTaskSet"), "theirs");
    // The editor is still open with what was typed; the next time the answer may be another.
    one_->Do("save-plan yes");
    EXPECT_EQ(Get("select Content from tTaskSet"), "mine");
    one_->Do("open-plan 7 again");
    other_->Do("open-plan 7 last");
    other_->Do("save-plan");
    one_->Do("save-plan no");
    EXPECT_EQ(Get("select Content from tTaskSet"), "last");
}

TEST_P(SeveralUsers, FieldsOfAPlanThatOnlyOneOfThemChangedAreBothStored) {
    Run("update tTaskSet set SetMan='boss'");
    one_->Do("open-plan 7 mine");
    Run("update tTaskSet set taskTitle='theirs',tEnd='2003-03-20',CircleType=1,CircleValue=2,"
        "taskday=5,TypeValue=3,DoneMan='other'");
    EXPECT_EQ(one_->Do("save-plan"), "64|任务修改完毕!");
    for (const auto& [field, value] :
         std::initializer_list<std::pair<std::string, std::string>>{{"Content", "mine"},
                                                                    {"taskTitle", "theirs"},
                                                                    {"CircleType", "1"},
                                                                    {"CircleValue", "2"},
                                                                    {"taskday", "5"},
                                                                    {"TypeValue", "3"},
                                                                    {"SetMan", "boss"},
                                                                    {"DoneMan", "other"}}) {
        EXPECT_EQ(Get("select " + field + " from tTaskSet"), value) << field;
    }
    EXPECT_EQ(Get("select tEnd from tTaskSet").substr(0, 10), "2003-03-20");
}

TEST_P(SeveralUsers, APlanThatIsWrongOnlyWhenJoinedIsNotSaved) {
    Run("update tTaskSet set SetMan='boss',CircleValue=9,TypeValue=1");
    one_->Do("open-plan 7 mine");
    Run("update tTaskSet set TypeValue=5,Type=3");
    EXPECT_EQ(one_->Do("save-plan"), "48|报警时间区段有重叠 , 请缩小报警提示时间范围!");
    EXPECT_EQ(Get("select Content from tTaskSet"), "");
}

TEST_P(SeveralUsers, GeneratingAPlanLeavesVisitsUnderItsNumber) {
    Run("insert into tTaskList(fType,TaskID,taskTitle,taskTime,tDone) "
        "values(1,7,'visit','2003-03-07',1)");
    EXPECT_EQ(one_->Do("generate 7 yes").find("36|"), std::string::npos);
    EXPECT_EQ(Get("select count(*) from tTaskList where fType=1"), "1");
    EXPECT_EQ(Get("select count(*) from tTaskList where TaskID=7"), std::to_string(kDays + 1));
}

TEST_P(SeveralUsers, AnItemThatSomebodyDeletedIsNotSavedAndTheUserSeesAMessage) {
    one_->Do("open shared mine");
    other_->Do("delete shared");
    EXPECT_EQ(one_->Do("save"), "48|原记录未有存在，操作取消！");
    EXPECT_EQ(Get("select count(*) from tTaskList"), "0");
}

TEST_P(SeveralUsers, AnItemThatSomebodyDeletedIsDeletedTwiceWithoutHarm) {
    other_->Do("delete shared");
    const std::string shown = one_->Do("delete shared");
    EXPECT_EQ(shown.find("16|"), std::string::npos) << shown;
    EXPECT_EQ(Get("select count(*) from tTaskList"), "0");
}

// Selecting an item reads it anew.
TEST_P(SeveralUsers, WhatSomebodyCompletedStaysTheirs) {
    EXPECT_EQ(one_->Do("complete shared"), "33|确认: 您已经完成了任务 [shared] ?");
    EXPECT_EQ(other_->Do("complete shared"), "");
    EXPECT_EQ(Get("select tDoneMan from tTaskList where taskTitle='shared'"), "one");
    EXPECT_EQ(Get("select tDone from tTaskList where taskTitle='shared'"), "1");
}

TEST_P(SeveralUsers, EditorsOfDifferentItemsDoNotMeet) {
    one_->Do("add shared-1 a");
    other_->Do("seek shared");
    one_->Do("open shared mine");
    other_->Do("open shared-1 theirs");
    EXPECT_EQ(other_->Do("save").substr(0, 2), "0|");
    EXPECT_EQ(one_->Do("save").substr(0, 2), "0|");
    EXPECT_EQ(Content(), "mine");
    EXPECT_EQ(Get("select fContent from tTaskList where taskTitle='shared-1'"), "theirs");
}

// Nothing guards against two generations at once. Each row is whole and saved by itself, every date
// is there, some may be there twice; what is done stays when both answer No; and generating once
// more leaves each date once.
TEST_P(SeveralUsers, TwoGenerationsOfOnePlanMayRepeatDatesAndLoseNone) {
    one_->Do("generate 7 no");
    Run("Update tTaskList Set tDone=1,tDoneMan = 'x' where TaskID=7 and taskTime='2003-03-03'");
    for (int round = 0; round < 5; round++) {
        one_->Begin("generate 7 no");
        other_->Begin("generate 7 no");
        const std::string shown = one_->End() + other_->End();
        ASSERT_EQ(shown.find("error"), std::string::npos) << shown;
        const int open =
            std::stoi(Get("select count(*) from tTaskList where TaskID=7 and tDone=0"));
        EXPECT_GE(open, kDays);
        EXPECT_LE(open, 2 * kDays);
        EXPECT_EQ(Get("select count(*) from tTaskList where TaskID=7 and tDone=1"), "1");
        for (int day = 1; day <= kDays; day++) {
            const std::string date = (day < 10 ? "2003-03-0" : "2003-03-") + std::to_string(day);
            EXPECT_NE(Get("select count(*) from tTaskList where TaskID=7 and taskTime='" + date +
                          "' and tDone=0"),
                      "0")
                << date;
        }
        EXPECT_EQ(Get("select count(*) from tTaskList where TaskID=7 and (taskTitle is null or "
                      "tDuring1 is null)"),
                  "0");
    }
    EXPECT_EQ(Get("select count(*) from tTaskSet"), "1");
    one_->Do("generate 7 yes");
    EXPECT_EQ(Get("select count(*) from tTaskList where TaskID=7"), std::to_string(kDays));
    EXPECT_EQ(Get("select DoneMan from tTaskSet where TaskID=7"), "one");
}

ZV_ON_EVERY_ENGINE(SeveralUsers);

}  // namespace
}  // namespace zv::users

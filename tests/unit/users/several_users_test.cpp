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
        one_->Tell("seek shared");
        other_->Tell("seek shared");
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
    one_->Tell("add shared-new text");
    EXPECT_EQ(other_->Tell("shows shared-new"), "no");
    other_->Tell("seek shared");
    EXPECT_EQ(other_->Tell("shows shared-new"), "yes");
    other_->Tell("delete shared-new");
    EXPECT_EQ(one_->Tell("shows shared-new"), "yes");
    one_->Tell("seek shared");
    EXPECT_EQ(one_->Tell("shows shared-new"), "no");
}

TEST_P(SeveralUsers, TheLaterUserToSaveIsAskedAndMayKeepWhatIsThere) {
    one_->Tell("open shared mine");
    other_->Tell("open shared theirs");
    EXPECT_EQ(other_->Tell("save").substr(0, 2), "0|");
    EXPECT_EQ(Content(), "theirs");
    const std::string question = one_->Tell("save cancel");
    EXPECT_NE(question.find("theirs"), std::string::npos) << question;
    EXPECT_NE(question.find("mine"), std::string::npos) << question;
    EXPECT_EQ(Content(), "theirs");
    // The editor is still open with what was typed; the next time the answer may be another.
    one_->Tell("save yes");
    EXPECT_EQ(Content(), "mine");
}

TEST_P(SeveralUsers, FieldsThatOnlyOneOfThemChangedAreBothStored) {
    one_->Tell("open shared mine");
    Run("update tTaskList set fOther2='theirs',tDone=2,tDoneMan='other',fGuest='guest' "
        "where taskTitle='shared'");
    EXPECT_EQ(one_->Tell("save"), "0|[shared]: 修改完毕 ！");
    EXPECT_EQ(Content(), "mine");
    EXPECT_EQ(Get("select fOther2 from tTaskList where taskTitle='shared'"), "theirs");
    EXPECT_EQ(Get("select tDone from tTaskList where taskTitle='shared'"), "2");
    EXPECT_EQ(Get("select tDoneMan from tTaskList where taskTitle='shared'"), "other");
    EXPECT_EQ(Get("select fGuest from tTaskList where taskTitle='shared'"), "guest");
    EXPECT_EQ(Get("select fUser from tTaskList where taskTitle='shared'"), "one");
}

TEST_P(SeveralUsers, AUserWhoKeepsWhatIsThereStillStoresTheRest) {
    one_->Tell("open shared mine");
    other_->Tell("open shared theirs");
    other_->Tell("save");
    one_->Tell("save no");
    EXPECT_EQ(Content(), "theirs");
    EXPECT_EQ(Get("select fUser from tTaskList where taskTitle='shared'"), "one");
}

TEST_P(SeveralUsers, TheLaterUserToSaveAPlanIsAskedAndMayKeepWhatIsThere) {
    Run("update tTaskSet set SetMan='boss'");
    one_->Tell("open-plan 7 mine");
    other_->Tell("open-plan 7 theirs");
    EXPECT_EQ(other_->Tell("save-plan"), "64|任务修改完毕!");
    const std::string question = one_->Tell("save-plan cancel");
    EXPECT_NE(question.find("现存 [theirs], 您的 [mine]"), std::string::npos) << question;
    EXPECT_EQ(Get("select Content from tTaskSet"), "theirs");
    // The editor is still open with what was typed; the next time the answer may be another.
    one_->Tell("save-plan yes");
    EXPECT_EQ(Get("select Content from tTaskSet"), "mine");
    one_->Tell("open-plan 7 again");
    other_->Tell("open-plan 7 last");
    other_->Tell("save-plan");
    one_->Tell("save-plan no");
    EXPECT_EQ(Get("select Content from tTaskSet"), "last");
}

TEST_P(SeveralUsers, FieldsOfAPlanThatOnlyOneOfThemChangedAreBothStored) {
    Run("update tTaskSet set SetMan='boss'");
    one_->Tell("open-plan 7 mine");
    Run("update tTaskSet set taskTitle='theirs',tEnd='2003-03-20',CircleType=1,CircleValue=2,"
        "taskday=5,TypeValue=3,DoneMan='other'");
    EXPECT_EQ(one_->Tell("save-plan"), "64|任务修改完毕!");
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
    one_->Tell("open-plan 7 mine");
    Run("update tTaskSet set TypeValue=5,Type=3");
    EXPECT_EQ(one_->Tell("save-plan"), "48|报警时间区段有重叠 , 请缩小报警提示时间范围!");
    EXPECT_EQ(Get("select Content from tTaskSet"), "");
}

TEST_P(SeveralUsers, GeneratingAPlanLeavesVisitsUnderItsNumber) {
    Run("insert into tTaskList(fType,TaskID,taskTitle,taskTime,tDone) "
        "values(1,7,'visit','2003-03-07',1)");
    EXPECT_EQ(one_->Tell("generate 7 yes").find("36|"), std::string::npos);
    EXPECT_EQ(Get("select count(*) from tTaskList where fType=1"), "1");
    EXPECT_EQ(Get("select count(*) from tTaskList where TaskID=7"), std::to_string(kDays + 1));
}

TEST_P(SeveralUsers, AnItemThatSomebodyDeletedIsNotSavedAndTheUserSeesAMessage) {
    one_->Tell("open shared mine");
    other_->Tell("delete shared");
    EXPECT_EQ(one_->Tell("save"), "48|原记录未有存在，操作取消！");
    EXPECT_EQ(Get("select count(*) from tTaskList"), "0");
}

TEST_P(SeveralUsers, AnItemThatSomebodyDeletedIsDeletedTwiceWithoutHarm) {
    other_->Tell("delete shared");
    const std::string told = one_->Tell("delete shared");
    EXPECT_EQ(told.find("16|"), std::string::npos) << told;
    EXPECT_EQ(Get("select count(*) from tTaskList"), "0");
}

// Selecting an item reads it anew.
TEST_P(SeveralUsers, WhatSomebodyCompletedStaysTheirs) {
    EXPECT_EQ(one_->Tell("complete shared"), "33|确认: 您已经完成了任务 [shared] ?");
    EXPECT_EQ(other_->Tell("complete shared"), "");
    EXPECT_EQ(Get("select tDoneMan from tTaskList where taskTitle='shared'"), "one");
    EXPECT_EQ(Get("select tDone from tTaskList where taskTitle='shared'"), "1");
}

TEST_P(SeveralUsers, EditorsOfDifferentItemsDoNotMeet) {
    one_->Tell("add shared-1 a");
    other_->Tell("seek shared");
    one_->Tell("open shared mine");
    other_->Tell("open shared-1 theirs");
    EXPECT_EQ(other_->Tell("save").substr(0, 2), "0|");
    EXPECT_EQ(one_->Tell("save").substr(0, 2), "0|");
    EXPECT_EQ(Content(), "mine");
    EXPECT_EQ(Get("select fContent from tTaskList where taskTitle='shared-1'"), "theirs");
}

// Nothing guards against two generations at once. Each row is whole and saved by itself, every date
// is there, some may be there twice; what is done stays when both answer No; and generating once
// more leaves each date once.
TEST_P(SeveralUsers, TwoGenerationsOfOnePlanMayRepeatDatesAndLoseNone) {
    one_->Tell("generate 7 no");
    Run("Update tTaskList Set tDone=1,tDoneMan = 'x' where TaskID=7 and taskTime='2003-03-03'");
    for (int round = 0; round < 5; round++) {
        one_->Begin("generate 7 no");
        other_->Begin("generate 7 no");
        const std::string told = one_->End() + other_->End();
        ASSERT_EQ(told.find("error"), std::string::npos) << told;
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
    one_->Tell("generate 7 yes");
    EXPECT_EQ(Get("select count(*) from tTaskList where TaskID=7"), std::to_string(kDays));
    EXPECT_EQ(Get("select DoneMan from tTaskSet where TaskID=7"), "one");
}

ZV_ON_EVERY_ENGINE(SeveralUsers);

}  // namespace
}  // namespace zv::users

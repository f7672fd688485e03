// What the user is asked and shown while the engine of plans works.
#include <gtest/gtest.h>

#include "plan_application.h"
#include "windows/generation/boxes.h"

namespace zv::windows {
namespace {

using forms::Answer;
using Lines = std::vector<std::string>;

constexpr const char* kFinished = "64|[生成任务]执行完毕!";
constexpr const char* kQuestion =
    "36|该任务此前已有完成: 是[Y] - 删除该事件的所有任务;否[N] - 仅删除所有未完成之任务?";
constexpr const char* kConfirm = "33|确认: 生成任务 [7 - 报表] ?";
constexpr const char* kGone = "48|任务号 [7] 已不存在!";

class GenerationBoxes : public testing::Test, protected PlanApplication {
 protected:
    // A monthly plan of four items: 31 January to 30 April.
    GenerationBoxes() {
        Sql("insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,"
            "taskday,TaskWeek,Type,TypeValue,SetMan,DoneMan,Content) values(7,'报表',"
            "'2003-01-01 00:00:00','2003-04-30 00:00:00',1,1,1,31,1,1,2,'李四','王五','月底报表')");
    }
    void AddDoneItem() {
        Sql("insert into tTaskList(TaskID,taskTime,tDone,fType) values(7,'2003-01-31',1,0)");
    }
    void WhileABoxStands(const std::function<void()>& act) {
        dialogs.whileStanding = [act](const std::string&) { act(); };
    }

    const DateTime date{2003, 3, 10};
};

TEST_F(GenerationBoxes, SayThatARunIsFinished) {
    GenerateTaskList(session, "7");
    EXPECT_EQ(dialogs.messages, Lines{kFinished});
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "4");
}

TEST_F(GenerationBoxes, SayThatARunIsFinishedForAPlanThatIsNotThere) {
    GenerateTaskList(session, "9");
    EXPECT_EQ(dialogs.messages, Lines{kFinished});
}

TEST_F(GenerationBoxes, YesDeletesWhatIsDone) {
    AddDoneItem();
    dialogs.answers = {Answer::Yes};
    GenerateTaskList(session, "7");
    EXPECT_EQ(dialogs.messages, (Lines{kQuestion, kFinished}));
    EXPECT_EQ(Rows("select count(*) from tTaskList where tDone=1"), "0");
}

TEST_F(GenerationBoxes, NoKeepsWhatIsDone) {
    AddDoneItem();
    dialogs.answers = {Answer::No};
    GenerateTaskList(session, "7");
    EXPECT_EQ(dialogs.messages, (Lines{kQuestion, kFinished}));
    EXPECT_EQ(Rows("select count(*) from tTaskList where tDone=1"), "1");
}

TEST_F(GenerationBoxes, SayThatThePlanWentWhileTheQuestionStood) {
    AddDoneItem();
    dialogs.answers = {Answer::Yes};
    WhileABoxStands([this] { Sql("delete from tTaskSet"); });
    GenerateTaskList(session, "7");
    EXPECT_EQ(dialogs.messages, (Lines{kQuestion, kGone}));
}

TEST_F(GenerationBoxes, StampThePlanWithTheUserWhoStartedTheRun) {
    AddDoneItem();
    dialogs.answers = {Answer::Yes};
    WhileABoxStands([this] { session.state.UserName = "赵六"; });
    GenerateTaskList(session, "7");
    EXPECT_EQ(Rows("select DoneMan from tTaskSet"), "张三");
}

TEST_F(GenerationBoxes, SayNothingOfARunThatFailed) {
    statements.FailRow(2);
    EXPECT_THROW(GenerateTaskList(session, "7"), RuntimeError);
    EXPECT_EQ(dialogs.messages, Lines());
}

TEST_F(GenerationBoxes, AskBeforeAnItemIsAdded) {
    dialogs.answers = {Answer::Ok};
    EXPECT_TRUE(AddTaskInstance(session, 7, date));
    EXPECT_EQ(dialogs.messages, Lines{kConfirm});
    EXPECT_EQ(Rows("select taskTime from tTaskList"), "2003-03-10 00:00:00");
}

TEST_F(GenerationBoxes, CancelAddsNothing) {
    dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(AddTaskInstance(session, 7, date));
    EXPECT_EQ(dialogs.messages, Lines{kConfirm});
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
}

TEST_F(GenerationBoxes, AreSilentWhenTheItemIsThere) {
    Sql("insert into tTaskList(TaskID,taskTime,tDone) values(7,'2003-03-10 00:00:00',0)");
    EXPECT_TRUE(AddTaskInstance(session, 7, date));
    EXPECT_EQ(dialogs.messages, Lines());
}

TEST_F(GenerationBoxes, SayThatThereIsNoPlanToAddAnItemOf) {
    Sql("delete from tTaskSet");
    EXPECT_FALSE(AddTaskInstance(session, 7, date));
    EXPECT_EQ(dialogs.messages, Lines{kGone});
}

}  // namespace
}  // namespace zv::windows

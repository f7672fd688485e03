#include "windows/completion/frm_task_done.h"

#include <gtest/gtest.h>

#include "plan_application.h"

namespace zv::windows {
namespace {

TEST(ReadTaskNumber, SkipsTabsAndStopsAtTheFirstOtherCharacter) {
    EXPECT_EQ(ReadTaskNumber("12\tReport"), 12);
    EXPECT_EQ(ReadTaskNumber("\t12\t"), 12);
    EXPECT_EQ(ReadTaskNumber("12报表"), 12);
    EXPECT_EQ(ReadTaskNumber("12.9"), 12);
    EXPECT_EQ(ReadTaskNumber("12e3"), 12);
}

TEST(ReadTaskNumber, TakesNothingBehindTheFirstBlank) {
    EXPECT_EQ(ReadTaskNumber("7 "), 7);
    EXPECT_EQ(ReadTaskNumber("7 8"), 7);
    EXPECT_EQ(ReadTaskNumber(" 7"), 0);
    EXPECT_EQ(ReadTaskNumber("12\tA 34"), 12);
}

TEST(ReadTaskNumber, JoinsTheDigitsOfATitle) {
    EXPECT_EQ(ReadTaskNumber("1\t2003 plan"), 12003);
    EXPECT_EQ(ReadTaskNumber("1\t2nd"), 12);
    EXPECT_EQ(ReadTaskNumber("12\t2003 plan"), 122003);
}

TEST(ReadTaskNumber, IsZeroWithoutANumber) {
    for (const char* text : {"", "abc", "-7", "+7", "\t", ".5", "７"}) {
        EXPECT_EQ(ReadTaskNumber(text), 0) << text;
    }
}

TEST(ReadTaskNumber, OverflowsBeyondThirtyTwoBits) {
    EXPECT_EQ(ReadTaskNumber("2147483647"), 2147483647);
    for (const std::string& text : {std::string("2147483648"), std::string(10000, '9')}) {
        try {
            ReadTaskNumber(text);
            ADD_FAILURE() << text;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
        }
    }
}

class TaskDone : public testing::Test, protected PlanApplication {
 protected:
    TaskDone() {
        Sql("insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,Type,"
            "TypeValue) values(5,'report','2003-01-01 00:00:00','2003-12-31 00:00:00',1,1,1,0)");
        Sql("insert into tTaskList(fID,taskTitle,tDone) values(7,'x',0)");
    }
    frmTaskDone& Open(std::int16_t type = frmTaskDone::kCompleteItem) {
        windows.FromHost([&] { ShowTaskDone(session, type, false); });
        return *windows.Find<frmTaskDone>(frmTaskDone::kName);
    }
    bool IsOpen() { return windows.Find(frmTaskDone::kName) != nullptr; }
};

TEST_F(TaskDone, TakesItsCaptionFromItsType) {
    EXPECT_EQ(Open().Caption(), "任务执行完毕");
    EXPECT_EQ(Open(1).Caption(), "任务新增");
    session.state.Language = 1;
    EXPECT_EQ(Open(0).Caption(), "任務執行完畢");
    EXPECT_EQ(Open(-1).Caption(), "任務新增");
}

TEST_F(TaskDone, ShowsThePlanOfTheControlsNumberAndToday) {
    session.state.myTaskID = 5;
    frmTaskDone& dialog = Open();
    EXPECT_EQ(dialog.txtTitle.Text(), "5\treport");
    EXPECT_EQ(dialog.DTPicker1.Value(), DateTime(2003, 3, 7));
    EXPECT_EQ(statements.Take(),
              std::vector<std::string>{"select * from tTaskSet where taskID=5 order by taskID"});
}

TEST_F(TaskDone, ClosesTheStoreWhileItWaits) {
    Open();
    EXPECT_FALSE(session.database.IsOpen());
}

TEST_F(TaskDone, ReadsTheControlsNumberOnce) {
    session.state.myTaskID = 5;
    frmTaskDone& dialog = Open();
    session.state.myTaskID = 7;
    EXPECT_EQ(&Open(), &dialog);
    EXPECT_EQ(dialog.txtTitle.Text(), "5\treport");
}

TEST_F(TaskDone, IgnoresTheNumberZero) {
    frmTaskDone& dialog = Open();
    statements.Take();
    user.Click(dialog.cmdTaskDone);
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(statements.Take().empty());
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TaskDone, MarksTheItemAndLeaves) {
    frmTaskDone& dialog = Open();
    statements.Take();
    user.Type(dialog.txtTitle, "7 ");
    user.Click(dialog.cmdTaskDone);
    EXPECT_EQ(
        statements.Take(),
        std::vector<std::string>{"Update tTaskList Set tDone=1,tDoneMan = '张三' where fID =7"});
    EXPECT_EQ(Rows("select tDone,tDoneMan from tTaskList"), "1|张三");
    EXPECT_FALSE(IsOpen());
}

TEST_F(TaskDone, AddsThePlansItemForItsDate) {
    session.state.myTaskID = 5;
    frmTaskDone& dialog = Open(1);
    user.SetDate(dialog.DTPicker1, DateTime(2003, 4, 1));
    dialogs.answers = {forms::Answer::Ok};
    user.Click(dialog.cmdTaskDone);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Rows("select taskTime from tTaskList where TaskID=5"), "2003-04-01 00:00:00");
}

TEST_F(TaskDone, StaysWhenNoItemWasAdded) {
    session.state.myTaskID = 5;
    frmTaskDone& dialog = Open(1);
    dialogs.answers = {forms::Answer::Cancel};
    user.Click(dialog.cmdTaskDone);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(dialog.txtTitle.Text(), "5\treport");
}

TEST_F(TaskDone, QuitsWithoutWriting) {
    frmTaskDone& dialog = Open();
    user.Type(dialog.txtTitle, "7");
    statements.Take();
    dialogs.answers = {forms::Answer::Cancel, forms::Answer::Ok};
    user.Click(dialog.cmdTaskQuit);
    EXPECT_TRUE(IsOpen()) << "what was typed is asked about";
    EXPECT_EQ(dialogs.standard, forms::DefaultButton::Last);
    user.Click(dialog.cmdTaskQuit);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(statements.Take().empty());
}

TEST_F(TaskDone, PlacesItsControlsBesideEachOtherInBothScripts) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        session.state.Language = language;
        frmTaskDone& dialog = Open();
        for (const forms::Control* a : dialog.Controls()) {
            EXPECT_LE(a->Bounds().Right(), dialog.ClientSize().width) << a->Name();
            EXPECT_LE(a->Bounds().Bottom(), dialog.ClientSize().height) << a->Name();
            for (const forms::Control* b : dialog.Controls()) {
                const bool apart = a == b || a->Bounds().Right() <= b->Bounds().left ||
                                   b->Bounds().Right() <= a->Bounds().left ||
                                   a->Bounds().Bottom() <= b->Bounds().top ||
                                   b->Bounds().Bottom() <= a->Bounds().top;
                EXPECT_TRUE(apart) << a->Name() << " " << b->Name();
            }
        }
        windows.FromHost([&] { dialog.Unload(); });
    }
}

}  // namespace
}  // namespace zv::windows

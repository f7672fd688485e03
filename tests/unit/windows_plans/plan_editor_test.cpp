// What scenarios cannot say well: long texts, the progress line, places of the controls.
#include "windows/plan_editor/frm_task_set.h"

#include <gtest/gtest.h>

#include "doubles/written_fields.h"
#include "forms/form.h"
#include "plan_application.h"
#include "session/text_checks.h"
#include "store/sqlite/sqlite_connection.h"
#include "windows/staff/frm_list.h"

namespace zv::windows {
namespace {

using forms::Answer;

class PlanEditorTest : public testing::Test, protected PlanApplication {
 protected:
    frmTaskSet& Open(std::int16_t plan = 0) {
        windows.FromHost([&] { ShowPlanEditor(session, plan, false); });
        return *windows.Find<frmTaskSet>(frmTaskSet::kName);
    }
};

std::string Repeat(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; i++) result += text;
    return result;
}

TEST_F(PlanEditorTest, CutsTenThousandCharactersToFiftyBytes) {
    frmTaskSet& editor = Open();
    for (const std::string& character : {std::string("a"), std::string("字"), std::string("😀")}) {
        user.Type(editor.txtTaskTitle, Repeat(character, 10000));
        user.Leave(editor.txtTaskTitle);
        EXPECT_LE(ByteLength(codePage, editor.txtTaskTitle.Text()), 50u);
        EXPECT_GE(ByteLength(codePage, editor.txtTaskTitle.Text()), 49u);
        EXPECT_EQ(editor.txtTaskTitle.Text().size() % character.size(), 0u);
    }
}

TEST_F(PlanEditorTest, NumbersAndOnlyTheyAreTypedWithoutAnInputMethod) {
    frmTaskSet& editor = Open();
    for (const forms::TextBox* box : {&editor.txtTaskID, &editor.txtCircleValue, &editor.txtMonth,
                                      &editor.txtDay, &editor.txtUpDown}) {
        EXPECT_TRUE(box->NumericKeyboard()) << box->Name();
    }
    for (const forms::TextBox* box :
         {&editor.txtTaskTitle, &editor.txtSetMan, &editor.txtTaskCon}) {
        EXPECT_FALSE(box->NumericKeyboard()) << box->Name();
    }
}

TEST_F(PlanEditorTest, ProposesNoDayBehindTheCalendar) {
    clock.Set({9999, 3, 7, 9, 30});
    frmTaskSet& editor = Open();
    EXPECT_EQ(editor.dateBegin.Value(), DateTime(9999, 3, 7));
    EXPECT_EQ(editor.dateEnd.Value(), DateTime(9999, 12, 31));
}

TEST_F(PlanEditorTest, RefusesTenThousandDigits) {
    frmTaskSet& editor = Open();
    user.Type(editor.txtCircleValue, Repeat("9", 10000));
    user.Leave(editor.txtCircleValue);
    EXPECT_TRUE(editor.txtCircleValue.HasFocus());
    EXPECT_EQ(dialogs.messages.size(), 1u);
}

TEST_F(PlanEditorTest, KeepsTenThousandCharactersOfContent) {
    frmTaskSet& editor = Open();
    const std::string content = Repeat("第一行 it's \"so\" 😀\r\n", 10000);
    user.Type(editor.txtTaskTitle, "a");
    user.Type(editor.txtTaskCon, content);
    user.Click(editor.cmdOK);
    EXPECT_EQ(Rows("select Content from tTaskSet"), content);
}

TEST_F(PlanEditorTest, MakesOneLineOfAPastedTitle) {
    frmTaskSet& editor = Open();
    user.Type(editor.txtTaskTitle, "a\r\nb\nc\rd");
    user.Leave(editor.txtTaskTitle);
    EXPECT_EQ(editor.txtTaskTitle.Text(), "a b c d");
}

TEST_F(PlanEditorTest, RefusesANumberTooLargeForItsField) {
    frmTaskSet& editor = Open();
    user.Type(editor.txtTaskTitle, "a");
    user.Type(editor.txtTaskID, "99999999999");
    user.Click(editor.cmdOK);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{"48|任务号数值超出最大范围!"});
    EXPECT_TRUE(editor.IsShown());
    EXPECT_TRUE(editor.txtTaskID.HasFocus());
    EXPECT_EQ(Rows("select count(*) from tTaskSet"), "0");
}

TEST_F(PlanEditorTest, ShowsItsProgressWhileItGenerates) {
    frmTaskSet& editor = Open();
    user.Type(editor.txtTaskTitle, "a");
    user.Pick(editor.cobCircleType, plans::circle::kDaily);
    user.SetDate(editor.dateEnd, DateTime(2003, 3, 11));
    user.Click(editor.chkTaskSet);
    dialogs.answers = {Answer::Yes};
    std::vector<std::string> shown;
    statements.onRow = [&] {
        if (!editor.lblProgress.Caption().empty()) shown.push_back(editor.lblProgress.Caption());
    };
    user.Click(editor.cmdOK);
    EXPECT_EQ(shown,
              (std::vector<std::string>{"0% (0)", "25% (1)", "50% (2)", "75% (3)", "100% (4)"}));
}

TEST_F(PlanEditorTest, StaysAndStartsNothingElseWhileItGenerates) {
    frmTaskSet& editor = Open();
    user.Type(editor.txtTaskTitle, "a");
    user.Click(editor.chkTaskSet);
    dialogs.answers = {Answer::Yes};
    bool again = false;
    statements.onRow = [&] {
        if (editor.lblProgress.Caption().empty() || again) return;
        again = true;
        editor.cmdOK_Click();
        editor.UserClose();
        EXPECT_TRUE(editor.IsShown());
    };
    user.Click(editor.cmdOK);
    EXPECT_TRUE(again);
    EXPECT_TRUE(windows.Windows().empty());
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "12");
}

TEST_F(PlanEditorTest, EmptiesTheProgressWhenTheGenerationFails) {
    frmTaskSet& editor = Open();
    user.Type(editor.txtTaskTitle, "a");
    user.Click(editor.chkTaskSet);
    dialogs.answers = {Answer::Yes};
    statements.FailRow(3);
    user.Click(editor.cmdOK);
    EXPECT_TRUE(editor.IsShown());
    EXPECT_EQ(editor.lblProgress.Caption(), "");
}

bool Overlap(const forms::Rect& a, const forms::Rect& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

void ExpectNoOverlap(const forms::Form& form) {
    for (const forms::Control* a : form.Controls()) {
        const forms::Size room =
            a->Parent() ? forms::Size{a->Parent()->Bounds().width, a->Parent()->Bounds().height}
                        : form.ClientSize();
        if (!a->OwnVisible()) continue;
        EXPECT_LE(a->Bounds().Right(), room.width) << a->Name();
        EXPECT_LE(a->Bounds().Bottom(), room.height) << a->Name();
        for (const forms::Control* b : form.Controls()) {
            if (a == b || a->Parent() != b->Parent() || !b->OwnVisible()) continue;
            EXPECT_FALSE(Overlap(a->Bounds(), b->Bounds())) << a->Name() << " " << b->Name();
        }
    }
}

TEST_F(PlanEditorTest, PlacesItsControlsBesideEachOtherInBothScripts) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        session.state.Language = language;
        frmTaskSet& editor = Open();
        for (int kind = 0; kind < 4; kind++) {
            user.Pick(editor.cobCircleType, kind);
            ExpectNoOverlap(editor);
        }
        windows.FromHost([&] { editor.Unload(); });
    }
}

TEST_F(PlanEditorTest, PlacesTheStaffListInBothScripts) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        session.state.Language = language;
        windows.FromHost([&] { ShowStaffList(session, 4, false); });
        auto& list = *windows.Find<frmList>(frmList::kName);
        ExpectNoOverlap(list);
        windows.FromHost([&] { list.Unload(); });
    }
}

TEST_F(PlanEditorTest, ReplacesAStaffListThatStandsOpen) {
    windows.FromHost([&] { ShowStaffList(session, 4, false); });
    frmTaskSet& editor = Open();
    backend.modalLoop = [&](forms::Form& form) {
        EXPECT_EQ(windows.Windows().size(), 2u);
        user.Close(form);
    };
    user.Click(editor.cmdSetMan);
    EXPECT_EQ(windows.Windows().size(), 1u);
    EXPECT_TRUE(dialogs.messages.empty());
}

constexpr const char* kStoredPlan =
    "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,taskday,"
    "TaskWeek,Type,TypeValue,SetMan,DoneMan,Content) values(5,'a','2003-02-01 00:00:00',"
    "'2006-02-01 00:00:00',1,2,6,30,3,1,7,'s','d','c')";

TEST_F(PlanEditorTest, SetsTheFieldsInTheirOrderWhateverWasChanged) {
    doubles::WrittenFields written;
    opener.open = [&](const store::ConnectionSettings& opened) {
        return written.Watch(store::OpenSqlite(opened.dataPath.ForDriver()));
    };
    const std::vector<std::string> order(plans::kPlanFields.begin(), plans::kPlanFields.end());
    Sql(kStoredPlan);
    user.Click(Open(5).cmdOK);
    EXPECT_EQ(written.names, order);
    EXPECT_EQ(order,
              (std::vector<std::string>{"TaskID", "taskTitle", "tbegin", "tEnd", "CircleValue",
                                        "CircleType", "taskMonth", "taskday", "TaskWeek", "Type",
                                        "TypeValue", "SetMan", "DoneMan", "Content"}));
    written.names.clear();
    frmTaskSet& editor = Open();
    user.Type(editor.txtTaskTitle, "b");
    user.Type(editor.txtSetMan, "s");
    user.Click(editor.cmdOK);
    EXPECT_EQ(written.names, order);
    session.database.Close();
}

TEST_F(PlanEditorTest, AChangeBetweenOpeningAndWritingIsRefusedAndThenAskedAbout) {
    Sql(kStoredPlan);
    frmTaskSet& editor = Open(5);
    user.Type(editor.txtTaskCon, "mine");
    statements.onRow = [&] { Sql("update tTaskSet set Content='theirs'"); };
    user.Click(editor.cmdOK);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_TRUE(dialogs.messages[0].starts_with("16|")) << dialogs.messages[0];
    EXPECT_EQ(Rows("select Content from tTaskSet"), "theirs");
    statements.onRow = nullptr;
    dialogs.answers = {Answer::Cancel};
    user.Click(editor.cmdOK);
    EXPECT_NE(dialogs.messages.back().find("[theirs]"), std::string::npos);
    EXPECT_EQ(Rows("select Content from tTaskSet"), "theirs");
    EXPECT_EQ(editor.txtTaskCon.Text(), "mine");
}

// A second confirmation, after the generation failed, is a change of the row as it was joined.
TEST_F(PlanEditorTest, GoesOnFromTheJoinedPlanWhenTheGenerationFails) {
    Sql(kStoredPlan);
    frmTaskSet& editor = Open(5);
    user.Type(editor.txtTaskCon, "mine");
    user.Click(editor.chkTaskSet);
    Sql("update tTaskSet set DoneMan='other'");
    dialogs.answers = {Answer::Yes};
    statements.FailRow(2);
    user.Click(editor.cmdOK);
    ASSERT_TRUE(editor.IsShown());
    EXPECT_EQ(editor.txtDoneMan.Text(), "other");
    Sql("update tTaskSet set SetMan='new'");
    user.Type(editor.txtDoneMan, "me");
    user.Click(editor.chkTaskSet);
    dialogs.messages.clear();
    user.Click(editor.cmdOK);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{"64|任务修改完毕!"});
    EXPECT_EQ(Rows("select SetMan,DoneMan,Content from tTaskSet"), "new|me|mine");
}

// What a kind of plan does not use is nothing that the two could mean differently.
TEST_F(PlanEditorTest, DoesNotAskAboutARecurrenceThatReadsAlike) {
    Sql(kStoredPlan);
    frmTaskSet& editor = Open(5);
    user.Type(editor.txtDay, "15");
    Sql("update tTaskSet set taskday=15,TaskWeek=2");
    user.Click(editor.cmdOK);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{"64|任务修改完毕!"});
    EXPECT_EQ(Rows("select CircleType,taskday from tTaskSet"), "1|15");
}

TEST_F(PlanEditorTest, KeepsAStoredTitleWithAQuoteThatAnotherProgramGave) {
    Sql(kStoredPlan);
    frmTaskSet& editor = Open(5);
    user.Type(editor.txtTaskCon, "mine");
    Sql("update tTaskSet set taskTitle='it''s'");
    user.Click(editor.cmdOK);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{"64|任务修改完毕!"});
    EXPECT_EQ(Rows("select taskTitle,Content from tTaskSet"), "it's|mine");
}

TEST_F(PlanEditorTest, NamesEveryFieldInTheQuestion) {
    Sql(kStoredPlan);
    frmTaskSet& editor = Open(5);
    user.Type(editor.txtTaskTitle, "b");
    user.SetDate(editor.dateBegin, DateTime(2003, 2, 2));
    user.Pick(editor.cobCircleType, plans::circle::kDaily);
    user.Type(editor.txtUpDown, "1");
    user.Type(editor.txtSetMan, "s2");
    user.Type(editor.txtDoneMan, "d2");
    user.Type(editor.txtTaskCon, "c2");
    Sql("update tTaskSet set taskTitle='x',tbegin='2003-02-03 00:00:00',CircleType=9,Type=9,"
        "SetMan='s3',DoneMan='d3',Content='c3'");
    dialogs.answers = std::deque<Answer>(7, Answer::Yes);
    user.Click(editor.cmdOK);
    const std::vector<std::string> lines{
        "主题: 现存 [x], 您的 [b]",
        "起始日期: 现存 [2003-02-03 00:00:00], 您的 [2003-02-02 00:00:00]",
        "安排日期: 现存 [每2(9)], 您的 [每2天]",
        "报警范围: 现存 [(9)7天], 您的 [提前1天]",
        "设置人: 现存 [s3], 您的 [s2]",
        "执行人: 现存 [d3], 您的 [d2]",
        "任务详情: 现存 [c3], 您的 [c2]"};
    ASSERT_EQ(dialogs.messages.size(), lines.size() + 1);
    for (std::size_t i = 0; i < lines.size(); i++) {
        EXPECT_NE(dialogs.messages[i].find("\r\n\r\n" + lines[i] + "\r\n\r\n"), std::string::npos)
            << dialogs.messages[i];
    }
    EXPECT_EQ(Rows("select taskTitle,CircleType,Type,TypeValue,SetMan,DoneMan,Content "
                   "from tTaskSet"),
              "b|2|1|1|s2|d2|c2");
}

}  // namespace
}  // namespace zv::windows

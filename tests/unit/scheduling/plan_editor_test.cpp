// What scenarios cannot say well: long texts, the progress line, places of the controls.
#include "scheduling/plan_editor.h"

#include <gtest/gtest.h>

#include "forms/form.h"
#include "plan_stage.h"
#include "scheduling/staff_list.h"
#include "session/text_checks.h"

namespace zv::scheduling {
namespace {

using forms::Answer;

class PlanEditorTest : public testing::Test, protected PlanStage {
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
    user.Pick(editor.cobCircleType, circle::kDaily);
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

}  // namespace
}  // namespace zv::scheduling

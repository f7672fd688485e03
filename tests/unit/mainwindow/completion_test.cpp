#include "main_window_fixture.h"

namespace zv::windows {
namespace {

using forms::Answer;

class CompletionTest : public MainWindow {
 protected:
    frmTaskMain& OpenAt(int done, std::int32_t mode = kManagerMode) {
        AddItem(0, "报表", done);
        frmTaskMain& window = Open(mode);
        ClickNode("Z1");
        stage.statements.Take();
        return window;
    }
    void AddModule(int number, const std::string& name) {
        stage.Sql("insert into tSysFunc(SerialNo,model_Name,Model_Name_0,NoUse_) values(" +
                  std::to_string(number) + ",'" + name + "','m',0)");
    }
    void Grant(std::size_t position) {
        stage.session.state.myPower = std::string(350, '0');
        stage.session.state.myPower.at(position - 1) = '1';
    }
    std::string ImageOf(const std::string& key) {
        const forms::TreeView& tree = stage.Window()->tree.tvwTask;
        return tree.Image(tree.Find(key));
    }
};

TEST_F(CompletionTest, DoneIsOneStatementAndTheTreeIsNotRefilled) {
    frmTaskMain& window = OpenAt(kNotDone);
    const int node = window.tree.tvwTask.Find("Z1");
    stage.dialogs.answers = {Answer::Ok};
    stage.windows.FromUser([&] { window.completion.SetItemState(0); });
    EXPECT_EQ(stage.statements.Take(),
              Lines{"Update tTaskList Set tDone=1,tDoneMan = '张三' where fID =1"});
    EXPECT_EQ(stage.dialogs.messages, Lines{"33|确认: 您已经完成了任务 [报表] ?"});
    EXPECT_EQ(window.tree.tvwTask.Find("Z1"), node);
    EXPECT_EQ(ImageOf("Z1"), "task4");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kDone);
}

TEST_F(CompletionTest, AnyOtherModeTakesInHand) {
    frmTaskMain& window = OpenAt(kNotDone);
    stage.dialogs.answers = {Answer::Ok};
    stage.windows.FromUser([&] { window.completion.SetItemState(7); });
    EXPECT_EQ(stage.statements.Take(),
              Lines{"Update tTaskList Set tDone=2,tDoneMan = '张三' where fID =1"});
    EXPECT_EQ(stage.dialogs.messages, Lines{"33|任务办理中: [报表] ?"});
    EXPECT_EQ(ImageOf("Z1"), "task3");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kInHand);
}

TEST_F(CompletionTest, AStateThatIsShownAlreadyIsNotAskedAbout) {
    frmTaskMain& window = OpenAt(kDone);
    stage.windows.FromUser([&] { window.completion.SetItemState(0); });
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(CompletionTest, CancelChangesNothing) {
    frmTaskMain& window = OpenAt(kInHand);
    stage.dialogs.answers = {Answer::Cancel};
    stage.windows.FromUser([&] { window.completion.SetItemState(0); });
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(ImageOf("Z1"), "task3");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kInHand);
}

TEST_F(CompletionTest, AFailingStatementChangesNothingThatIsShown) {
    frmTaskMain& window = OpenAt(kNotDone);
    stage.dialogs.answers = {Answer::Ok};
    stage.statements.failing = "Update tTaskList";
    stage.windows.FromUser([&] { window.completion.SetItemState(0); });
    EXPECT_EQ(stage.dialogs.messages.back(), "16|Update tTaskList");
    EXPECT_EQ(ImageOf("Z1"), "task2");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kNotDone);
}

TEST_F(CompletionTest, AnItemThatIsGoneIsReported) {
    frmTaskMain& window = OpenAt(kNotDone);
    stage.Sql("delete from tTaskList");
    stage.dialogs.answers = {Answer::Ok};
    stage.windows.FromUser([&] { window.completion.SetItemState(0); });
    EXPECT_EQ(stage.dialogs.messages.back(), "48|任务未找到，请查证!");
    EXPECT_EQ(ImageOf("Z1"), "task2");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kNotDone);
}

TEST_F(CompletionTest, ANewItemThatIsBeingEnteredIsNotTakenForTheSelectedOne) {
    frmTaskMain& window = OpenAt(kNotDone);
    window.model.editMode = EditMode::Adding;
    stage.windows.FromUser([&] { window.completion.SetItemState(0); });
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(CompletionTest, APlanIsNotTakenForAnItem) {
    frmTaskMain& window = OpenAt(kNotDone);
    stage.Sql("insert into tTaskSet(TaskID,taskTitle) values(1,'p')");
    stage.user.Click(window.tree.chkEvent);
    ClickNode("Z1");
    stage.statements.Take();
    stage.windows.FromUser([&] { window.completion.SetItemState(1); });
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(CompletionTest, AnItemIsNotTakenForAPlan) {
    frmTaskMain& window = OpenAt(kNotDone);
    stage.windows.FromUser([&] { window.completion.mnuEventDone_Click(); });
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(CompletionTest, TheButtonAsksForLevelFour) {
    AddModule(10, "mnuToolTask");
    frmTaskMain& window = OpenAt(kNotDone);
    Grant(13);
    stage.user.Click(window.commands.cmdTaskOK);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|您无权进行操作 ！"});
    Grant(14);
    stage.dialogs.answers = {Answer::Ok};
    stage.user.Click(window.commands.cmdTaskOK);
    EXPECT_EQ(ImageOf("Z1"), "task4");
}

TEST_F(CompletionTest, TheMenuDropsJustBelowTheButton) {
    AddModule(20, "mnuZjComp");
    frmTaskMain& window = OpenAt(kNotDone);
    stage.user.RightPress(window.commands.cmdTaskOK);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|您无权进行操作 ！"});
    EXPECT_EQ(window.LastPopup(), "");
    Grant(24);
    stage.user.RightPress(window.commands.cmdTaskOK);
    EXPECT_EQ(window.LastPopup(), "mnuDone");
    const forms::Rect& bar = window.commands.fraTop.Bounds();
    const forms::Rect& button = window.commands.cmdTaskOK.Bounds();
    EXPECT_GT(button.left, 0);
    EXPECT_EQ(window.LastPopupAt(),
              (forms::Position{bar.left + button.left, bar.top + button.top + button.height}));
}

TEST_F(CompletionTest, TheInHandCaptionEndsInThreeDots) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        const std::string caption =
            resources::LoadText(resources::DesignText::MenuInHandEntry, language);
        EXPECT_TRUE(caption.ends_with("...")) << caption;
        EXPECT_GT(caption.size(), 3U);
    }
}

}  // namespace
}  // namespace zv::windows

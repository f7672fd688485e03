#include "windows/main/acts/plan_commands.h"

#include "main_window_fixture.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

class Plans : public MainWindow {
 protected:
    Plans() {
        stage.Sql(
            "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,"
            "taskday,TaskWeek,\"Type\",TypeValue) values"
            "(7,'计划','2003-01-01 00:00:00','2003-12-31 00:00:00',1,1,1,1,1,1,0)");
        stage.Sql("insert into tTaskSet(TaskID,taskTitle) values(40000,'大号')");
        AddItem(kTask, "甲");
        stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
        stage.session.state.myPower = std::string(350, '1');
        stage.backend.modalLoop = [this](forms::Form& form) {
            auto& editor = static_cast<windows::frmTaskSet&>(form);
            edited.push_back(editor.txtTaskID.Text() + "|" + editor.txtTaskTitle.Text());
            if (whileOpen) whileOpen(editor);
            if (editor.IsLoaded()) editor.Unload();
        };
    }
    frmTaskMain& OpenPlans() {
        frmTaskMain& window = Open();
        stage.user.Click(window.tree.chkEvent);
        return window;
    }
    std::string SelectedKey() {
        const forms::TreeView& tree = stage.Window()->tree.tvwTask;
        return std::string(tree.Key(tree.Selected()));
    }

    Lines edited;
    std::function<void(windows::frmTaskSet&)> whileOpen;
};

TEST_F(Plans, TheSelectedPlanIsOpenedAndTheChangeShown) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    whileOpen = [this](auto&) { stage.Sql("update tTaskSet set taskTitle='改名' where TaskID=7"); };
    stage.user.Choose(window.commands.menus.mnuEventChg);
    EXPECT_EQ(edited, Lines{"7|计划"});
    EXPECT_NE(stage.Nodes().find("Z7|E0|event4|改名"), std::string::npos);
    EXPECT_EQ(SelectedKey(), "Z7");
    EXPECT_EQ(window.model.currentId, 7);
    EXPECT_EQ(window.item.txtTitle2.Text(), "改名");
}

TEST_F(Plans, ANewPlanIsAddedFromAnywhere) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    whileOpen = [this](auto&) { AddItem(kTask, "生成的"); };
    stage.user.Choose(window.commands.menus.mnuEventAdd);
    EXPECT_EQ(edited.size(), 1u);
    EXPECT_TRUE(edited[0].ends_with("|"));
    EXPECT_EQ(stage.NodeKeys(), "A1 Z2 Z1 B2 C3");
    EXPECT_EQ(SelectedKey(), "Z1");
    EXPECT_EQ(window.model.currentId, 1);
}

TEST_F(Plans, AFillThatFailsIsReportedAndTheTreeStays) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    const std::string before = stage.Nodes();
    whileOpen = [this](auto&) { stage.statements.failing = "from tTaskSet Order by"; };
    stage.user.Choose(window.commands.menus.mnuEventChg);
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|from tTaskSet Order by"});
    EXPECT_EQ(stage.Nodes(), before);
    EXPECT_EQ(SelectedKey(), "Z7");
    EXPECT_EQ(window.item.txtTitle2.Text(), "计划");
}

TEST_F(Plans, ANodeThatIsGoneLeavesTheFirstSelected) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    whileOpen = [this](auto&) { stage.Sql("delete from tTaskSet where TaskID=7"); };
    stage.user.Choose(window.commands.menus.mnuEventChg);
    EXPECT_EQ(SelectedKey(), "E0");
    EXPECT_EQ(window.model.currentId, 0);
}

TEST_F(Plans, AChangeOnTheRootOpensANewPlan) {
    frmTaskMain& window = OpenPlans();
    ClickNode("E0");
    stage.user.Choose(window.commands.menus.mnuEventChg);
    stage.user.Click(window.commands.cmdAction[2]);
    EXPECT_EQ(edited, (Lines{"40001|", "40001|"}));
}

TEST_F(Plans, AnItemIsNoPlanToChange) {
    frmTaskMain& window = OpenPlans();
    stage.user.Click(window.tree.chkEvent);
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuEventChg);
    EXPECT_TRUE(edited.empty());
}

TEST_F(Plans, ANumberBeyondSixteenBitsIsAnOverflow) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z40000");
    stage.user.Choose(window.commands.menus.mnuEventChg);
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|数值溢出"});
    EXPECT_TRUE(edited.empty());
    EXPECT_EQ(stage.windows.Find(windows::frmTaskSet::kName), nullptr);
    stage.user.Click(window.commands.cmdAction[2]);
    EXPECT_EQ(window.model.editMode, EditMode::None);
}

TEST_F(Plans, TheButtonsOpenThePlanEditorWhilePlansAreShown) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    stage.user.Click(window.commands.cmdAction[2]);
    stage.user.Click(window.commands.cmdAction[1]);
    EXPECT_EQ(edited, (Lines{"7|计划", "40001|"}));
    EXPECT_EQ(window.model.editMode, EditMode::None);
    EXPECT_FALSE(window.model.Editing());
}

TEST_F(Plans, InputOfAnItemSurvivesThePlanEditor) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Type(window.item.txtTitle2, "未存");
    stage.user.Choose(window.commands.menus.mnuEventAdd);
    EXPECT_EQ(edited.size(), 1u);
    EXPECT_EQ(window.item.txtTitle2.Text(), "未存");
    EXPECT_TRUE(window.model.Editing());
}

TEST_F(Plans, AnEditorThatTheHostOpenedComesForward) {
    EXPECT_EQ(stage.Refresh(2), 0);
    Open();
    stage.user.Choose(stage.Window()->commands.menus.mnuEventAdd);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(edited.empty());
    EXPECT_NE(stage.windows.Find(windows::frmTaskSet::kName), nullptr);
}

TEST_F(Plans, AWindowClosedMeanwhileIsLeftAlone) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    whileOpen = [this](auto&) { stage.windows.UnloadAll(); };
    stage.user.Choose(window.commands.menus.mnuEventChg);
    EXPECT_EQ(stage.Window(), nullptr);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

}  // namespace
}  // namespace zv::windows

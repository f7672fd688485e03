#include "windows/main/acts/advanced_search.h"

#include "main_window_fixture.h"
#include "windows/query/query_builder.h"

namespace zv::windows {
namespace {

class Search : public MainWindow {
 protected:
    Search() {
        stage.session.state.ZgName = stage.session.state.UserName;
        AddItem(kTask, "报表");
        AddItem(kTask, "合同", 1, "1999-01-01");
        AddItem(kGuest, "拜访");
        stage.backend.modalLoop = [this](forms::Form& form) {
            auto& builder = static_cast<windows::frmSeek&>(form);
            shown = builder.lstConditions.Items();
            act(builder);
            if (builder.IsLoaded()) builder.Unload();
        };
    }
    void Accept(windows::frmSeek& builder) { stage.user.Click(builder.cmdOK); }
    void AskForTitle(const std::string& title) {
        act = [this, title](windows::frmSeek& builder) {
            if (builder.cmdClear.Enabled()) stage.user.Click(builder.cmdClear);
            stage.user.Pick(builder.cboField, 1);
            stage.user.Type(builder.txtValue, title);
            Accept(builder);
        };
    }

    std::function<void(windows::frmSeek&)> act = [this](auto& builder) { Accept(builder); };
    Lines shown;
};

TEST_F(Search, WithoutAConditionListsEverything) {
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 Z2 B2 Z3 C3");
    const auto sent = stage.statements.Take();
    EXPECT_EQ(
        sent.back(),
        "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from tTaskList "
        "a  Order by a.fType,a.taskTime desc,a.taskTitle");
}

TEST_F(Search, FindsItemsWhateverTheFilterSays) {
    frmTaskMain& window = Open();
    AskForTitle("合同");
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_NE(stage.Nodes().find("合同"), std::string::npos);
    EXPECT_EQ(stage.Nodes().find("报表"), std::string::npos);
    EXPECT_TRUE(stage.statements.Take().back().find(" Where a.taskTitle like '%合同%' Order by") !=
                std::string::npos);
    EXPECT_FALSE(window.commands.cmdTaskOK.Enabled());
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
    EXPECT_EQ(window.model.currentId, 0);
}

TEST_F(Search, OfTheCardViewKeepsToVisits) {
    frmTaskMain& window = Open(kCardMode);
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_NE(stage.statements.Take().back().find(" Where a.fType=1 Order by"), std::string::npos);
    AskForTitle("合同");
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_NE(stage.statements.Take().back().find(
                  " Where a.taskTitle like '%合同%' And fType=1 Order by"),
              std::string::npos);
}

TEST_F(Search, ACancelLeavesTheTree) {
    frmTaskMain& window = Open();
    const std::string before = stage.Nodes();
    act = [this](windows::frmSeek& builder) { stage.user.Click(builder.cmdCancel); };
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_EQ(stage.Nodes(), before);
}

TEST_F(Search, BeginsWithTheConditionsOfTheSearchBefore) {
    frmTaskMain& window = Open();
    AskForTitle("合同");
    stage.user.Choose(window.commands.menus.mnuSeek2);
    act = [this](windows::frmSeek& builder) { stage.user.Click(builder.cmdCancel); };
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_EQ(shown, Lines{"主题 包含 [合同]"});
}

TEST_F(Search, FromThePlansComesBackToItems) {
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_FALSE(window.tree.chkEvent.Checked());
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 Z2 B2 Z3 C3");
    EXPECT_TRUE(window.filter.fraB3.OwnVisible());
    EXPECT_EQ(window.model.currentKind, NodeKind::Task);
}

TEST_F(Search, OutlivesAHostThatClosesEverything) {
    frmTaskMain& window = Open();
    act = [this](windows::frmSeek& builder) {
        Accept(builder);
        stage.windows.UnloadAll();
    };
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_TRUE(stage.windows.Windows().empty());
}

TEST_F(Search, AStatementThatFailsIsReportedAndTheTreeStays) {
    frmTaskMain& window = Open();
    const std::string before = stage.Nodes();
    stage.statements.failing = "select distinct";
    stage.user.Choose(window.commands.menus.mnuSeek2);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(stage.Nodes(), before);
}

}  // namespace
}  // namespace zv::windows

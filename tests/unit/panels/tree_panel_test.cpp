#include "windows/main/panels/tree_panel.h"

#include "items/list_query.h"
#include "panel_fixture.h"

namespace zv::windows {
namespace {

using items::ItemState;

class TreePanelTest : public PanelTest {
 protected:
    TreePanelTest() : panel(form, stage.session) {
        stage.Sql(
            "insert into tTaskList(fID,fType,taskTitle,taskTime,tDone) "
            "values(1,0,'甲','2003-03-07',0);"
            "insert into tTaskList(fID,fType,taskTitle,taskTime,tDone) "
            "values(2,2,'乙','2003-03-07',2);"
            "insert into tTaskList(fID,fType,taskTitle,taskTime,tDone) "
            "values(3,9,'?','2003-03-07',0)");
        panel.SetStartCaption();
        panel.onNodeClick = [this](int node) { clicks.push_back(panel.KeyOf(node)); };
        Show();
    }
    TreePanel::FillResult Fill(const items::Filter& filter = {}) {
        stage.session.database.EnsureConnection();
        const auto rows = stage.session.database.Open(
            items::ListItems("", false, items::Order::ByDate, 0).statement);
        TreePanel::FillResult result;
        panel.FillItems(*rows, filter, result);
        rows->Close();
        return result;
    }
    TreePanel panel;
    Lines clicks;
};

TEST_F(TreePanelTest, GroupsItemsByTheirKind) {
    const TreePanel::FillResult result = Fill();
    EXPECT_EQ(result.rowsLeftOut, 1);
    EXPECT_EQ(result.any, (std::array<bool, 3>{true, false, true}));
    EXPECT_EQ(panel.Count(), 5);
    EXPECT_EQ(panel.GroupKindOf(panel.Find("Z2")), NodeKind::Diary);
}

TEST_F(TreePanelTest, AKindThatIsFilteredHasNoEmptyGroup) {
    items::Filter filter;
    filter.kinds = {true, false, true};
    Fill(filter);
    EXPECT_EQ(panel.Count(), 4);
}

TEST_F(TreePanelTest, KnowsTheStateOfANode) {
    Fill();
    const int node = panel.Find(ItemRef{2, false});
    EXPECT_EQ(panel.StateOf(node), ItemState::InHand);
    EXPECT_EQ(panel.StateOf(panel.Find("A1")), std::nullopt);
    panel.ShowState(node, ItemState::Done);
    EXPECT_EQ(panel.StateOf(node), ItemState::Done);
    EXPECT_EQ(panel.tvwTask.Image(node), "task4");
}

TEST_F(TreePanelTest, AReaderHearsTheStateAndTheDayOfAnItemInTheLanguageOfTheWindow) {
    Fill();
    const auto& describe = panel.tvwTask.describe;
    EXPECT_EQ(describe(panel.Find("Z1")), "未完成，2003-03-07 到期，今天");
    EXPECT_EQ(describe(panel.Find("Z2")), "办理中，日期 2003-03-07，今天");
    panel.ShowState(panel.Find("Z1"), ItemState::Done);
    EXPECT_EQ(describe(panel.Find("Z1")), "已完成，2003-03-07 到期");
    stage.session.state.Language = resources::kTraditionalChinese;
    EXPECT_EQ(describe(panel.Find("Z2")), "辦理中，日期 2003-03-07，今天");
}

TEST_F(TreePanelTest, AReaderHearsTheNewStateAsSoonAsThePictureShowsIt) {
    struct Watch final : forms::TreePeer {
        forms::Position PlaceOf(int) override { return {}; }
        explicit Watch(TreePanel& watched) : tree(watched) {}
        void Changed(forms::Aspect) override {}
        void TakeFocus() override {}
        void NodeAdded(int) override {}
        void NodeRemoved(int) override {}
        void NodeChanged(int node) override { heard = tree.Describe(node); }
        void NodesCleared() override {}
        void FillBegins() override {}
        void FillEnds() override {}
        TreePanel& tree;
        std::string heard;
    };
    Fill();
    auto watch = std::make_unique<Watch>(panel);
    Watch& watched = *watch;
    panel.tvwTask.AttachPeer(std::move(watch));
    panel.ShowState(panel.Find("Z1"), ItemState::InHand);
    EXPECT_EQ(watched.heard, "办理中，2003-03-07 到期，今天");
}

TEST_F(TreePanelTest, AnItemWithoutADayHasOnlyItsStateToSayAndGroupsAndPlansNothing) {
    stage.Sql("update tTaskList set taskTime=null where fID=1");
    Fill();
    const auto& describe = panel.tvwTask.describe;
    EXPECT_EQ(describe(panel.Find("Z1")), "未完成");
    EXPECT_EQ(describe(panel.Find("A1")), "");
    panel.Clear();
    stage.Sql("insert into tTaskSet(taskID,taskTitle) values(2,'计划')");
    const auto rows = stage.session.database.Open(
        "select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by taskTitle");
    panel.FillPlans(*rows);
    rows->Close();
    EXPECT_EQ(describe(panel.Find("E0")), "");
    EXPECT_EQ(describe(panel.Find("Z2")), "");
}

TEST_F(TreePanelTest, ItemsAndPlansAreNumberedEachByThemselves) {
    Fill();
    EXPECT_EQ(panel.Find(ItemRef{2, true}), TreePanel::kNone);
    panel.Clear();
    stage.Sql("insert into tTaskSet(taskID,taskTitle) values(2,'计划')");
    const auto rows = stage.session.database.Open(
        "select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by taskTitle");
    panel.FillPlans(*rows);
    rows->Close();
    EXPECT_EQ(panel.Find(ItemRef{2, false}), TreePanel::kNone);
    EXPECT_EQ(panel.NumberOf(panel.Find(ItemRef{2, true})), 2);
}

TEST_F(TreePanelTest, HandsOnWhatTheUserDoes) {
    Fill();
    stage.user.ClickNode(panel.tvwTask, "Z1");
    EXPECT_EQ(clicks, Lines{"Z1"});
    int switches = 0;
    panel.onSwitch = [&] { switches++; };
    stage.user.Click(panel.chkEvent);
    EXPECT_EQ(switches, 1);
    EXPECT_TRUE(panel.WantsPlans());
}

TEST_F(TreePanelTest, FindsASavedItemWithoutANumberByWhatIsSeen) {
    Fill();
    items::SavedItem saved;
    saved.kind = items::ItemKind::Diary;
    saved.title = "乙";
    saved.date = DateTime(2003, 3, 7);
    EXPECT_EQ(panel.KeyOf(panel.Find(saved)), "Z2");
    saved.kind = items::ItemKind::Task;
    EXPECT_EQ(panel.Find(saved), TreePanel::kNone);
}

}  // namespace
}  // namespace zv::windows

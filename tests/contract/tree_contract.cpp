#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

Icon Square(std::uint32_t color) {
    return Icon{{Shape{Shape::Kind::Polygon, color, {{2, 2}, {14, 2}, {14, 14}, {2, 14}}, 0}}};
}

struct TreeForm : TestForm {
    explicit TreeForm(WindowSystem& windows) : TestForm(windows) {
        images.Add("task1", Square(0xFF808080));
        images.Add("task2", Square(0xFFFF0000));
        images.Add("task4", Square(0xFF00FF00));
        tvwTask.SetImageList(&images);
    }
    ImageList images;
    TreeView tvwTask{*this, "tvwTask"};
    TextBox txtOther{*this, "txtOther"};
};

class Trees : public Contract {
 protected:
    Trees() : form(windows_.Create<TreeForm>()), tree(form.tvwTask) {
        Arrange(form);
        tree.onNodeClick = [this](int node) { events_.emplace_back(tree.Key(node)); };
    }
    void FillSmall() {
        const int task = tree.Add(TreeView::kNone, "A1", "任务", "task1");
        tree.SetExpanded(task, true);
        tree.Add(task, "Z1", "(2003-03-07)\t报表", "task2");
        tree.Add(task, "Z2", "(2003-03-06)\t月報", "task4");
        tree.Add(TreeView::kNone, "B2", "客户", "task1");
    }
    TreeForm& form;
    TreeView& tree;
};

TEST_F(Trees, NodesAreShownInTheOrderAdded) {
    FillSmall();
    form.Show(false);
    EXPECT_EQ(Read(tree, "nodes"),
              "A1||task1|任务\nZ1|A1|task2|(2003-03-07)\t报表\nZ2|A1|task4|(2003-03-06)\t月報\n"
              "B2||task1|客户");
}

TEST_F(Trees, AddingToAShownTreeShowsAtOnce) {
    form.Show(false);
    FillSmall();
    tree.Add(tree.Find("B2"), "Z3", "张三", "task2");
    EXPECT_NE(Read(tree, "nodes").find("Z3|B2|task2|张三"), std::string::npos);
}

TEST_F(Trees, AFillOfAShownTreeIsComplete) {
    form.Show(false);
    FillSmall();
    {
        const TreeView::Fill fill(tree);
        tree.Clear();
        const int root = tree.Add(TreeView::kNone, "E0", "事件", "task1");
        tree.SetExpanded(root, true);
        tree.Add(root, "Z9", "年会", "task4");
    }
    EXPECT_EQ(Read(tree, "nodes"), "E0||task1|事件\nZ9|E0|task4|年会");
}

TEST_F(Trees, SelectingFromCodeRaisesNoNodeClick) {
    FillSmall();
    form.Show(false);
    tree.Select(tree.Find("Z2"));
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(Read(tree, "selected"), "Z2");
    tree.Select(TreeView::kNone);
    EXPECT_EQ(Read(tree, "selected"), "");
}

TEST_F(Trees, ShowingATreeRaisesNoNodeClick) {
    FillSmall();
    tree.Select(tree.Find("A1"));
    form.Show(false);
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(Read(tree, "selected"), "A1");
}

TEST_F(Trees, ClickingANodeSelectsItAndRaisesNodeClick) {
    FillSmall();
    form.Show(false);
    driver().ClickNode(tree, "Z1");
    EXPECT_EQ(events_, std::vector<std::string>{"Z1"});
    EXPECT_EQ(Read(tree, "selected"), "Z1");
    EXPECT_EQ(Read(tree, "focus"), "true");
    EXPECT_THROW(driver().ClickNode(tree, "Z99"), driver::DriverError);
}

TEST_F(Trees, ClickingTheSelectedNodeAgainRaisesNodeClickAgain) {
    FillSmall();
    form.Show(false);
    driver().ClickNode(tree, "Z1");
    driver().ClickNode(tree, "Z1");
    EXPECT_EQ(events_, (std::vector<std::string>{"Z1", "Z1"}));
}

TEST_F(Trees, TheArrowKeysMoveTheSelectionLikeAClick) {
    FillSmall();
    form.Show(false);
    driver().ClickNode(tree, "A1");
    driver().Key(tree, key::kDown);
    driver().Key(tree, key::kDown);
    driver().Key(tree, key::kUp);
    EXPECT_EQ(events_, (std::vector<std::string>{"A1", "Z1", "Z2", "Z1"}));
}

TEST_F(Trees, EnterReachesTheKeyHandler) {
    tree.onKeyDown = [this](KeyEvent& event) {
        if (event.code == key::kEnter) form.txtOther.SetFocus();
    };
    FillSmall();
    form.Show(false);
    driver().Key(tree, key::kEnter);
    EXPECT_EQ(Read(form.txtOther, "focus"), "true");
}

TEST_F(Trees, ARightClickSelectsTheNodeAndRaisesMouseDown) {
    tree.onMouseDown = [this](const MouseEvent& event) {
        if (event.button == MouseButton::Right) {
            events_.push_back("right:" + std::string(tree.Key(tree.Selected())));
        }
    };
    FillSmall();
    form.Show(false);
    driver().RightClickNode(tree, "Z2");
    EXPECT_EQ(events_, std::vector<std::string>{"right:Z2"});
}

TEST_F(Trees, TextAndImageOfANodeCanChange) {
    FillSmall();
    form.Show(false);
    tree.SetImage(tree.Find("Z1"), "task4");
    tree.SetText(tree.Find("Z1"), "neu");
    EXPECT_NE(Read(tree, "nodes").find("Z1|A1|task4|neu"), std::string::npos);
    EXPECT_THROW(tree.SetImage(tree.Find("Z1"), "nichts"), RuntimeError);
}

TEST_F(Trees, KeysAreUnique) {
    FillSmall();
    try {
        tree.Add(TreeView::kNone, "Z1", "x", "task1");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::KeyNotUnique);
    }
    EXPECT_EQ(tree.Count(), 4);
}

TEST_F(Trees, RemovingTheSelectedNodeSelectsItsNeighbour) {
    FillSmall();
    form.Show(false);
    tree.Select(tree.Find("Z1"));
    tree.Remove(tree.Find("Z1"));
    EXPECT_EQ(Read(tree, "selected"), "Z2");
    tree.Remove(tree.Find("Z2"));
    EXPECT_EQ(Read(tree, "selected"), "A1");
    EXPECT_EQ(Read(tree, "nodes"), "A1||task1|任务\nB2||task1|客户");
    EXPECT_TRUE(events_.empty());
}

TEST_F(Trees, RemovingANodeRemovesWhatLiesBelow) {
    FillSmall();
    form.Show(false);
    tree.Remove(tree.Find("A1"));
    EXPECT_EQ(Read(tree, "nodes"), "B2||task1|客户");
    EXPECT_EQ(tree.Find("Z1"), TreeView::kNone);
    EXPECT_EQ(tree.Count(), 1);
    tree.Add(tree.Find("B2"), "Z1", "wieder", "task2");
    EXPECT_EQ(Read(tree, "nodes"), "B2||task1|客户\nZ1|B2|task2|wieder");
}

TEST_F(Trees, ClearingLeavesNothing) {
    FillSmall();
    form.Show(false);
    tree.Select(tree.Find("Z1"));
    tree.Clear();
    EXPECT_EQ(Read(tree, "nodes"), "");
    EXPECT_EQ(Read(tree, "selected"), "");
    EXPECT_EQ(tree.First(), TreeView::kNone);
}

TEST_F(Trees, TakesAHundredThousandNodes) {
    constexpr int kNodes = 100000;
    form.Show(false);
    for (int round = 0; round < 2; round++) {
        const TreeView::Fill fill(tree);
        tree.Clear();
        tree.Reserve(kNodes + 1);
        const int root = tree.Add(TreeView::kNone, "A1", "任务", "task1");
        tree.SetExpanded(root, true);
        for (int i = 0; i < kNodes; i++) {
            tree.Add(root, "Z" + std::to_string(i), "(2003-03-07)\t标题" + std::to_string(i),
                     "task2");
        }
    }
    EXPECT_EQ(tree.Count(), kNodes + 1);
    EXPECT_EQ(tree.Text(tree.Find("Z99999")), "(2003-03-07)\t标题99999");
    driver().ClickNode(tree, "Z99999");
    EXPECT_EQ(events_, std::vector<std::string>{"Z99999"});
    tree.Remove(tree.Find("Z50000"));
    EXPECT_EQ(Read(tree, "count"), std::to_string(kNodes));
}

TEST_F(Trees, SignsStandBesideTheTextsAndFollowWhatTheyAreAskedFor) {
    std::string word = "逾期";
    tree.sign = [&](int node) -> std::optional<Sign> {
        if (tree.Key(node) != "Z1") return std::nullopt;
        return Sign{word, 0xB00020};
    };
    FillSmall();
    const std::string nodes = Read(tree, "nodes");
    form.Show(false);
    EXPECT_EQ(Read(tree, "signs"), "Z1|逾期|B00020");
    EXPECT_EQ(Read(tree, "nodes"), nodes);
    word = "今天";
    tree.RepaintSigns();
    form.Refresh();
    EXPECT_EQ(Read(tree, "signs"), "Z1|今天|B00020");
    driver().ClickNode(tree, "Z1");
    EXPECT_EQ(Read(tree, "selected"), "Z1");
    tree.Clear();
    form.Refresh();
    EXPECT_EQ(Read(tree, "signs"), "");
}

}  // namespace
}  // namespace zv::contract

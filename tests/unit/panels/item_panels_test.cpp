#include "items/fields.h"
#include "panel_fixture.h"
#include "windows/main/acts/field_labels.h"
#include "windows/main/acts/item_values.h"
#include "windows/main/panels/content_panel.h"
#include "windows/main/panels/item_panel.h"

namespace zv::windows {
namespace {

namespace field = items::field;

class ItemPanelTest : public PanelTest {
 protected:
    ItemPanelTest() : panel(form, stage.session) {
        panel.LoadLists();
        panel.onKind = [this] { kinds++; };
        Show();
    }
    ItemPanel panel;
    int kinds = 0;
};

TEST_F(ItemPanelTest, EachBoxIsThatOfItsField) {
    for (const FieldBox& box : panel.Boxes()) {
        EXPECT_EQ(box.box->Name(), items::kFields[box.field].box);
    }
}

TEST_F(ItemPanelTest, SaysThatAnotherKindWasChosen) {
    stage.user.Pick(panel.cboType2, Number(items::ItemKind::Guest));
    EXPECT_EQ(kinds, 1);
}

TEST_F(ItemPanelTest, ALockedPanelTakesNoInput) {
    panel.SetLocked(true);
    EXPECT_TRUE(panel.txtTitle2.Locked());
    EXPECT_FALSE(panel.cboType2.Enabled());
    panel.SetLocked(false);
    EXPECT_FALSE(panel.txtTitle2.Locked());
    EXPECT_TRUE(panel.cboType2.Enabled());
    EXPECT_TRUE(panel.txtUser2.Locked());
}

TEST_F(ItemPanelTest, PlansHaveNeitherKindNorState) {
    panel.ShowFor(true);
    EXPECT_FALSE(panel.cboType2.Visible());
    EXPECT_FALSE(panel.cboDone2.Visible());
    EXPECT_TRUE(panel.txtTitle2.Visible());
}

TEST_F(ItemPanelTest, NewNamesLeaveTheOneThatIsEntered) {
    panel.cboJbr2.SetText("张三");
    panel.SetStaff({"李四", "王五"});
    EXPECT_EQ(panel.cboJbr2.Text(), "张三");
    EXPECT_EQ(panel.cboJbr2.ListCount(), 2);
}

class ContentPanelTest : public PanelTest {
 protected:
    ContentPanelTest() : panel(form, {tabs, kItemTab}, stage.session) { Show(); }
    ContentPanel panel;
};

TEST_F(ContentPanelTest, HasABoxForEachFreeField) {
    EXPECT_EQ(panel.txtOther.Count(), items::FreeFields());
    EXPECT_EQ(panel.Boxes().size(), 1u + static_cast<std::size_t>(items::FreeFields()));
    for (const FieldBox& box : panel.Boxes()) {
        EXPECT_EQ(box.box->Name(), items::kFields[box.field].box);
        EXPECT_EQ(static_cast<forms::TextBox*>(box.box)->MaxLength(),
                  items::kFields[box.field].length);
    }
}

TEST_F(ContentPanelTest, ValuesGoThroughTheirBoxes) {
    const ItemValues values(stage.session, panel.Boxes());
    values.Show(field::kContent, "内容");
    values.Show(items::field::At("fOther5"), "备注");
    EXPECT_EQ(panel.txtTaskCon.Text(), "内容");
    EXPECT_EQ(panel.txtOther[5].Text(), "备注");
    const items::ItemEntry entry = values.Entry(7);
    EXPECT_EQ(entry[field::kContent], store::Value("内容"));
    EXPECT_EQ(entry[field::kNumber], store::Value(7));
    // What has no box here is not entered.
    EXPECT_FALSE(entry[field::kTitle]);
}

TEST_F(ContentPanelTest, LabelsTakeTheCaptionsOfTheDatabase) {
    stage.Sql(
        "insert into rptListDetail(fieldID,fTable,FieldName,FieldName_0,FieldType) "
        "values(1,'ttasklist','fOther0','地点 & 时间',0)");
    FieldLabels labels(stage.session, panel.Boxes());
    labels.ShowCaptions();
    EXPECT_EQ(panel.lblOther[0].Caption(), "备注 1");
    labels.FillIfNeeded();
    EXPECT_EQ(panel.lblOther[0].ShownText(), "地点 & 时间");
    EXPECT_EQ(panel.txtOther[0].AccessibleName(), "地点 & 时间");
    EXPECT_EQ(panel.lblOther[1].Caption(), "备注 2");
}

}  // namespace
}  // namespace zv::windows

#include "mainwindow/other_fields.h"

#include "main_window_fixture.h"

namespace zv::mainwindow {
namespace {

class OtherFieldsTest : public MainWindow {
 protected:
    OtherFieldsTest() {
        stage.Sql(
            "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1) values"
            "('ttasklist','fOther0','地点','地點');"
            "insert into rptListDetail(fTable,FieldName,FieldName_0) values"
            "('ttasklist','FOTHER2','费用');"
            "insert into rptListDetail(fTable,FieldName,FieldName_0) values"
            "('ttasklist','taskTitle','主题');"
            "insert into rptListDetail(fTable,FieldName,FieldName_0) values"
            "('cards','fOther1','别的')");
    }
};

TEST_F(OtherFieldsTest, TakeTheirCaptionsFromTheDatabase) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.lblOther[0].Caption(), "地点");
    EXPECT_EQ(window.lblOther[1].Caption(), "备注 2");
    EXPECT_EQ(window.lblOther[2].Caption(), "费用");
    EXPECT_EQ(window.txtOther[0].AccessibleName(), "地点");
}

TEST_F(OtherFieldsTest, InTheControlsLanguage) {
    stage.session.state.Language = 1;
    frmTaskMain& window = Open();
    EXPECT_EQ(window.lblOther[0].Caption(), "地點");
    EXPECT_EQ(window.lblOther[2].Caption(), "備註 3");
}

TEST_F(OtherFieldsTest, AreReadOnceForALanguage) {
    frmTaskMain& window = Open();
    stage.statements.Take();
    window.otherFields.FillIfNeeded();
    EXPECT_TRUE(stage.statements.Take().empty());
    window.captions.Load();
    EXPECT_EQ(window.lblOther[0].Caption(), "地点");
}

TEST_F(OtherFieldsTest, ADatabaseWithoutThemHasNumberedFields) {
    stage.Sql("drop table rptListDetail");
    frmTaskMain& window = Open();
    EXPECT_EQ(window.lblOther[0].Caption(), "备注 1");
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(OtherFieldsTest, AnyOtherFailureIsTold) {
    stage.statements.failing = "rptListDetail";
    frmTaskMain& window = Open();
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|rptListDetail"});
    EXPECT_EQ(window.lblOther[0].Caption(), "备注 1");
}

TEST_F(OtherFieldsTest, TheFieldInUseIsScrolledIntoSight) {
    frmTaskMain& window = Open();
    const int height = window.txtOther[5].Bounds().Bottom();
    window.picOtherIn.Move({0, 0, 400, height + 4});
    window.picOther.Move({0, 0, 400, window.txtOther[0].Bounds().height + 10});
    const auto top = [&] { return window.picOtherIn.Bounds().top; };
    window.txtOther[0].SetFocus();
    EXPECT_EQ(top(), 0);
    // Below the visible part: its bottom comes to the edge.
    window.txtOther[3].SetFocus();
    EXPECT_EQ(top() + window.txtOther[3].Bounds().Bottom(), window.picOther.Bounds().height);
    window.txtOther[5].SetFocus();
    EXPECT_EQ(top() + window.txtOther[5].Bounds().Bottom(), window.picOther.Bounds().height);
    EXPECT_GE(top() + window.picOtherIn.Bounds().height, window.picOther.Bounds().height);
    // Above it: its top does.
    window.txtOther[1].SetFocus();
    EXPECT_EQ(top(), -window.txtOther[1].Bounds().top);
    // The first one, too, when it is reached from before the panel.
    window.txtOther[5].SetFocus();
    window.txtTaskCon.SetFocus();
    window.txtOther[0].SetFocus();
    EXPECT_EQ(top(), -window.txtOther[0].Bounds().top);
}

TEST_F(OtherFieldsTest, APanelThatShowsAllDoesNotMove) {
    frmTaskMain& window = Open();
    for (int i = 0; i < kOtherFields; i++) {
        window.txtOther[i].SetFocus();
        EXPECT_EQ(window.picOtherIn.Bounds().top, 0);
    }
}

}  // namespace
}  // namespace zv::mainwindow

#include "windows/main/acts/field_labels.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class FieldLabelsTest : public MainWindow {
 protected:
    FieldLabelsTest() {
        stage.Sql(
            "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,FieldType,fieldID) "
            "values('ttasklist','fOther0','地点','地點',0,2),"
            "('ttasklist','FOTHER2','费用',null,0,3),"
            "('ttasklist','taskTitle','名称','名稱',0,1),"
            "('ttasklist','tDoneMan','隐藏',null,-1,4),"
            "('ttasklist','fContent','更隐藏',null,-2,5),"
            "('ttasklist','fUser','','',0,6),"
            "('ttasklist','fNoLabel','无','無',0,7),"
            "('cards','fOther1','别的','別的',0,8)");
    }
};

TEST_F(FieldLabelsTest, TakeTheirCaptionsFromTheDatabase) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblTitle.Caption(), "名称");
    EXPECT_EQ(window.item.txtTitle2.AccessibleName(), "名称");
    EXPECT_EQ(window.content.lblOther[0].Caption(), "地点");
    EXPECT_EQ(window.content.lblOther[2].Caption(), "费用");
    EXPECT_EQ(window.content.txtOther[0].AccessibleName(), "地点");
}

TEST_F(FieldLabelsTest, WithoutARowKeepTheirDesign) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblDate.Caption(), "日期");
    EXPECT_EQ(window.content.lblOther[1].Caption(), "备注 2");
    EXPECT_EQ(window.cards.lblCompany.Caption(), "客户");
}

TEST_F(FieldLabelsTest, AreNotRenamedByHiddenFields) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblDoer.Caption(), "执行人");
    EXPECT_EQ(window.content.lblContent.Caption(), "内容");
}

TEST_F(FieldLabelsTest, AreNotEmptiedByAnEmptyCaption) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblWriter.Caption(), "设置人");
    stage.session.state.Language = 1;
    window.labels.FillIfNeeded();
    EXPECT_EQ(window.content.lblOther[2].Caption(), "備註 3");
}

TEST_F(FieldLabelsTest, ShowAnAmpersandOfTheDatabaseAsItStands) {
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,FieldType,fieldID) "
        "values('ttasklist','fOther1','甲&乙','&&丙&',0,9)");
    frmTaskMain& window = Open();
    EXPECT_EQ(window.content.lblOther[1].Caption(), "甲&乙");
    EXPECT_EQ(window.content.lblOther[1].ShownText(), "甲&乙");
    EXPECT_FALSE(window.content.lblOther[1].UseMnemonic());
    EXPECT_TRUE(window.content.lblOther[3].UseMnemonic());
    stage.session.state.Language = 1;
    window.labels.FillIfNeeded();
    EXPECT_EQ(window.content.lblOther[1].ShownText(), "&&丙&");
}

TEST_F(FieldLabelsTest, ThatAreDescribedTwiceTakeTheLaterRow) {
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,FieldType,fieldID) "
        "values('ttasklist','TASKTITLE','','名称二',0,9)");
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblTitle.Caption(), "主题");
    stage.session.state.Language = 1;
    window.labels.FillIfNeeded();
    EXPECT_EQ(window.item.lblTitle.Caption(), "名称二");
}

TEST_F(FieldLabelsTest, AreReadByOneStatementForEachLanguage) {
    frmTaskMain& window = Open();
    window.labels.LoadFieldCaptions();
    EXPECT_EQ(stage.statements.Take(),
              Lines{"select FieldName,FieldName_0 from rptListDetail Where fTable='ttasklist' And "
                    "FieldType>-1 Order by fieldID"});
    window.labels.FillIfNeeded();
    EXPECT_TRUE(stage.statements.Take().empty());
    stage.session.state.Language = 1;
    window.labels.FillIfNeeded();
    EXPECT_EQ(stage.statements.Take(),
              Lines{"select FieldName,FieldName_1 from rptListDetail Where fTable='ttasklist' And "
                    "FieldType>-1 Order by fieldID"});
}

TEST_F(FieldLabelsTest, InTheControlsLanguage) {
    stage.session.state.Language = 1;
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblTitle.Caption(), "名稱");
    EXPECT_EQ(window.content.lblOther[0].Caption(), "地點");
    EXPECT_EQ(window.content.lblOther[2].Caption(), "備註 3");
}

TEST_F(FieldLabelsTest, FollowALanguageThatChangesWhileTheWindowIsOpen) {
    frmTaskMain& window = Open();
    stage.session.state.Language = 1;
    window.labels.FillIfNeeded();
    EXPECT_EQ(window.item.lblTitle.Caption(), "名稱");
    EXPECT_EQ(window.item.lblKind.Caption(), "類型");
    EXPECT_EQ(window.content.lblOther[0].Caption(), "地點");
    EXPECT_EQ(window.content.lblOther[1].Caption(), "備註 2");
}

TEST_F(FieldLabelsTest, StayWhenTheWindowsCaptionsAreSetAgain) {
    frmTaskMain& window = Open();
    window.LoadCaptions();
    EXPECT_EQ(window.item.lblTitle.Caption(), "名称");
    // Those of another language are not shown beside its texts.
    stage.session.state.Language = 1;
    window.LoadCaptions();
    EXPECT_EQ(window.item.lblTitle.Caption(), "任務名");
}

TEST_F(FieldLabelsTest, OfALanguageThatTheTableLacksKeepTheirDesign) {
    stage.Sql("alter table rptListDetail drop column FieldName_1");
    stage.session.state.Language = 1;
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblTitle.Caption(), "任務名");
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(FieldLabelsTest, ADatabaseWithoutTheTableLeavesTheDesign) {
    stage.Sql("drop table rptListDetail");
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.lblTitle.Caption(), "主题");
    EXPECT_EQ(window.content.lblOther[0].Caption(), "备注 1");
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(FieldLabelsTest, AnyOtherFailureIsReported) {
    stage.statements.failing = "rptListDetail";
    frmTaskMain& window = Open();
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|rptListDetail"});
    EXPECT_EQ(window.content.lblOther[0].Caption(), "备注 1");
}

TEST_F(FieldLabelsTest, AreFoundByTheirFieldWithoutRegardToCase) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.labels.Of(items::field::kTitle), &window.item.lblTitle);
    EXPECT_EQ(window.labels.Of(items::field::At("fOther5")), &window.content.lblOther[5]);
    EXPECT_EQ(window.labels.Of(items::field::kAlertFrom), nullptr);
}

TEST_F(FieldLabelsTest, ALongCaptionLeavesTheFieldHalfOfThePlace) {
    stage.Sql("update rptListDetail set FieldName_0='" + std::string(100, 'W') + "'");
    frmTaskMain& window = Open();
    for (const forms::Control* field :
         {static_cast<forms::Control*>(&window.item.txtTitle2),
          static_cast<forms::Control*>(&window.content.txtOther[0])}) {
        EXPECT_GT(field->Bounds().width, 100);
    }
}

}  // namespace
}  // namespace zv::windows

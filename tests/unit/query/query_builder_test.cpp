#include "windows/query/query_builder.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv::windows {
namespace {

using Lines = std::vector<std::string>;

// Positions in the list of fields of a database that describes none.
constexpr int kTime = 0;
constexpr int kTitle = 1;
constexpr int kState = 6;

class QueryBuilder : public testing::Test {
 protected:
    frmSeek& Open() {
        auto& window = stage.windows.Create<frmSeek>(stage.session);
        window.conditions = before;
        window.onAccepted = [this](const std::vector<items::Condition>& conditions) {
            accepted = items::WhereText(conditions, [this](DateTime date) {
                return stage.session.database.DateLiteral(date);
            });
        };
        window.Show(false);
        return window;
    }
    void AddTitle(frmSeek& window, const std::string& text) {
        stage.user.Pick(window.cboField, kTitle);
        stage.user.Type(window.txtValue, text);
        stage.user.Click(window.cmdAdd);
    }

    test::TestApplication stage;
    std::vector<items::Condition> before;
    std::string accepted;
};

TEST_F(QueryBuilder, WithoutAConditionAsksForEverything) {
    frmSeek& window = Open();
    EXPECT_FALSE(window.optOr.Enabled());
    EXPECT_FALSE(window.cmdRemove.Enabled());
    EXPECT_FALSE(window.cmdClear.Enabled());
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(accepted, "1=1");
}

TEST_F(QueryBuilder, JoinsConditionsByAndOrOr) {
    frmSeek& window = Open();
    AddTitle(window, "报表");
    stage.user.Click(window.optOr);
    AddTitle(window, "合同");
    EXPECT_EQ(window.lstConditions.Items(), (Lines{"主题 包含 [报表]", "或者 主题 包含 [合同]"}));
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(accepted, "(a.taskTitle like '%报表%' Or a.taskTitle like '%合同%')");
    EXPECT_TRUE(stage.windows.Windows().empty());
}

TEST_F(QueryBuilder, OffersTheComparisonsAndTheValueThatTheFieldTakes) {
    frmSeek& window = Open();
    stage.user.Pick(window.cboField, kTime);
    EXPECT_TRUE(window.DTPicker1.Visible());
    EXPECT_FALSE(window.txtValue.Visible());
    EXPECT_EQ(window.cboCompare.List(0), "当天");
    EXPECT_EQ(*window.DTPicker1.Value(), DateTime(2003, 3, 7));
    stage.user.Pick(window.cboField, kState);
    EXPECT_TRUE(window.cboValue.Visible());
    EXPECT_EQ(window.cboValue.Items(), (Lines{"未完成", "已完成", "办理中"}));
    stage.user.Pick(window.cboField, kTitle);
    stage.user.Pick(window.cboCompare, 4);
    EXPECT_FALSE(window.txtValue.Enabled());
    stage.user.Click(window.cmdAdd);
    EXPECT_EQ(window.lstConditions.Items(), Lines{"主题 为空"});
}

TEST_F(QueryBuilder, DatesAreWrittenInTheDatabasesDialect) {
    stage.session.state.SQLData = 0;
    frmSeek& window = Open();
    stage.user.Pick(window.cboField, kTime);
    stage.user.Click(window.cmdAdd);
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(accepted, "(a.taskTime>=#03/07/2003# And a.taskTime<#03/08/2003#)");
}

TEST_F(QueryBuilder, RefusesASingleQuote) {
    frmSeek& window = Open();
    AddTitle(window, "张'三");
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|不能输入单引号,请删除!"});
    EXPECT_EQ(window.lstConditions.ListCount(), 0);
    EXPECT_EQ(window.txtValue.Text(), "张'三");
    EXPECT_EQ(window.ActiveControl(), &window.txtValue);
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(stage.dialogs.messages.size(), 2U);
    EXPECT_TRUE(window.IsShown());
}

TEST_F(QueryBuilder, RefusesAnEmptyValue) {
    frmSeek& window = Open();
    AddTitle(window, "");
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|主题不能为空!"});
    EXPECT_EQ(window.lstConditions.ListCount(), 0);
}

TEST_F(QueryBuilder, RefusesAWordForANumber) {
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldType,fieldID) values"
        "('ttasklist','taskID','编号',0,1)");
    frmSeek& window = Open();
    stage.user.Type(window.txtValue, "三");
    stage.user.Click(window.cmdAdd);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|只能输入数字,请删除其它字符!"});
    stage.user.Type(window.txtValue, "3");
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(accepted, "a.taskID=3");
}

TEST_F(QueryBuilder, ANumberIsTypedWithoutAnInputMethodAndATextWithOne) {
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldType,fieldID) values"
        "('ttasklist','taskID','编号',0,1),('ttasklist','taskTitle','主题',0,2)");
    frmSeek& window = Open();
    ASSERT_EQ(window.cboField.Items(), (Lines{"编号", "主题"}));
    EXPECT_TRUE(window.txtValue.NumericKeyboard());
    stage.user.Pick(window.cboField, 1);
    EXPECT_FALSE(window.txtValue.NumericKeyboard());
    stage.user.Pick(window.cboField, 0);
    EXPECT_TRUE(window.txtValue.NumericKeyboard());
}

TEST_F(QueryBuilder, TakesAValueThatWasTypedAndNotAdded) {
    frmSeek& window = Open();
    stage.user.Pick(window.cboField, kTitle);
    stage.user.Type(window.txtValue, "报表");
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(accepted, "a.taskTitle like '%报表%'");
}

TEST_F(QueryBuilder, RemovesOneOrAllConditions) {
    frmSeek& window = Open();
    AddTitle(window, "甲");
    AddTitle(window, "乙");
    AddTitle(window, "丙");
    stage.user.Pick(window.lstConditions, 0);
    stage.user.Click(window.cmdRemove);
    EXPECT_EQ(window.lstConditions.Items(), (Lines{"主题 包含 [乙]", "并且 主题 包含 [丙]"}));
    EXPECT_EQ(window.lstConditions.ListIndex(), 0);
    stage.user.Click(window.cmdClear);
    EXPECT_EQ(window.lstConditions.ListCount(), 0);
    EXPECT_FALSE(window.cmdRemove.Enabled());
}

TEST_F(QueryBuilder, BeginsWithTheConditionsOfTheTimeBefore) {
    items::Condition condition;
    condition.field = {"tDone", "状况", items::FieldKind::State};
    condition.comparison = items::Comparison::Equal;
    condition.row = 1;
    before = {condition};
    frmSeek& window = Open();
    EXPECT_EQ(window.lstConditions.Items(), Lines{"状况 等于 已完成"});
    EXPECT_TRUE(window.optOr.Enabled());
}

TEST_F(QueryBuilder, ACancelAnswersNothing) {
    frmSeek& window = Open();
    AddTitle(window, "甲");
    stage.user.Click(window.cmdCancel);
    EXPECT_EQ(accepted, "");
    EXPECT_TRUE(stage.windows.Windows().empty());
}

TEST_F(QueryBuilder, SpeaksTraditionalChinese) {
    stage.session.state.Language = 1;
    frmSeek& window = Open();
    EXPECT_EQ(window.Caption(), "進階查詢");
    EXPECT_EQ(window.lblField.Caption(), "欄位");
    EXPECT_EQ(window.cboField.List(kState), "狀況");
}

}  // namespace
}  // namespace zv::windows

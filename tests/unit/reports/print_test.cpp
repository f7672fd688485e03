#include <gtest/gtest.h>

#include "application/test_application.h"
#include "forms/grid.h"
#include "reports/print_grid.h"
#include "reports/print_report.h"
#include "reports/report_job.h"

namespace zv::reports {
namespace {

using Lines = std::vector<std::string>;

class PrintReportTest : public testing::Test {
 protected:
    void AddItem() {
        stage.Sql("insert into tTaskList(fType,taskTitle,taskTime) values(0,'x','2003-03-07')");
    }
    static Report Some(const std::string& filter, const std::string& order) {
        Report report;
        report.printMode = 2;
        report.name = "zvTask09";
        report.title = "清单";
        report.filter = filter;
        report.order = order;
        return report;
    }
    std::string StatementFor(const std::string& filter, const std::string& order) {
        stage.statements.Take();
        PrintReport(stage.session, Some(filter, order));
        const Lines sent = stage.statements.Take();
        return sent.size() == 1 ? sent[0] : std::to_string(sent.size()) + " statements";
    }
    int ErrorOf(const Report& report) {
        try {
            PrintReport(stage.session, report);
        } catch (const RuntimeError& error) {
            text = error.Text();
            return static_cast<int>(error.Number());
        }
        return 0;
    }
    const platform::ReportJob& Job() { return stage.reports.printed.at(0).job; }

    test::TestApplication stage;
    std::string text;
};

TEST_F(PrintReportTest, ChecksForDataWithTheFilterAndTheOrder) {
    AddItem();
    EXPECT_EQ(StatementFor("", ""), "select top 1 * from tTaskList a ");
    EXPECT_EQ(StatementFor("a.fType=0", ""), "select top 1 * from tTaskList a where a.fType=0");
    EXPECT_EQ(StatementFor("", "a.fType"), "select top 1 * from tTaskList a Order By a.fType");
    EXPECT_EQ(StatementFor("fType=0", "a.fType"),
              "select top 1 * from tTaskList a where fType=0Order By a.fType");
    EXPECT_EQ(stage.reports.printed.size(), 4u);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(PrintReportTest, HandsOverWhatTheComponentNeeds) {
    AddItem();
    ControlState& state = stage.session.state;
    state.Password = "secret";
    state.UserID = "sa";
    state.Default = "tasks";
    state.UserName = "张三";
    state.CompName = "某公司";
    state.Language = 1;
    state.Copyright = true;
    state.reportParameters = {"(主题)\tTaskTitle", "报表"};
    Report report = Some("a.fType=0 ", "a.fType");
    report.columns = {{"taskTitle", "主题"}, {"fOther0", "地点"}};
    report.asked = "日期：不限";
    PrintReport(stage.session, report);
    const platform::ReportJob& job = Job();
    EXPECT_EQ(job.printMode, 2);
    EXPECT_EQ(job.reportName, "zvTask09");
    EXPECT_EQ(job.title, "清单");
    EXPECT_EQ(job.subTitle, "");
    EXPECT_EQ(job.filter, "a.fType=0 ");
    EXPECT_EQ(job.order, "a.fType");
    EXPECT_EQ(job.asked, "日期：不限");
    EXPECT_EQ(job.parameters, (Lines{"(主题)\tTaskTitle", "报表"}));
    EXPECT_EQ(job.columns, (Lines{"(主题)\ttaskTitle", "(地点)\tfOther0"}));
    EXPECT_TRUE(stage.reports.printed[0].hadRecordset);
    EXPECT_EQ(job.connection.dataPath, state.UserPath);
    EXPECT_EQ(job.connection.password, "secret");
    EXPECT_EQ(job.connection.kind, 0);
    EXPECT_EQ(job.connection.login, "sa");
    EXPECT_EQ(job.connection.database, "tasks");
    EXPECT_EQ(job.userName, "张三");
    EXPECT_EQ(job.companyHeading, "某公司");
    EXPECT_EQ(job.language, 1);
    EXPECT_TRUE(job.copyright);
}

TEST_F(PrintReportTest, AListIsReadWhereTheWindowsReadTheirRows) {
    AddItem();
    stage.session.database.EnsureConnection();
    const store::ConnectionText opened = stage.session.state.UserPath;
    stage.session.state.UserPath = "C:\\other.db";
    stage.session.state.SQLData = 1;
    PrintReport(stage.session, Some("", ""));
    EXPECT_EQ(Job().connection.dataPath, opened);
    EXPECT_EQ(Job().connection.kind, 0);
}

TEST_F(PrintReportTest, TheSettingsAreHandedOverAtEveryPrint) {
    AddItem();
    stage.session.state.UserName = "王五";
    PrintReport(stage.session, Some("", ""));
    stage.session.state.UserName = "李四";
    PrintReport(stage.session, Some("", ""));
    EXPECT_EQ(stage.reports.printed[0].job.userName, "王五");
    EXPECT_EQ(stage.reports.printed[1].job.userName, "李四");
}

TEST_F(PrintReportTest, CreatesTheComponentOnceAndKeepsIt) {
    AddItem();
    PrintReport(stage.session, Some("", ""));
    PrintReport(stage.session, Some("", ""));
    EXPECT_EQ(stage.reports.created, 1);
    stage.reports.Release();
    PrintReport(stage.session, Some("", ""));
    EXPECT_EQ(stage.reports.created, 2);
}

TEST_F(PrintReportTest, WithoutARowSaysSoAndPrintsNothing) {
    PrintReport(stage.session, Some("", ""));
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|未有可供打印的数据记录！"});
    EXPECT_TRUE(stage.reports.printed.empty());
    AddItem();
    PrintReport(stage.session, Some("a.fType=2", ""));
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
    EXPECT_TRUE(stage.reports.printed.empty());
}

TEST_F(PrintReportTest, WithoutTheComponentFailsBeforeAnythingIsRead) {
    AddItem();
    stage.reports.missing = true;
    EXPECT_EQ(ErrorOf(Some("", "")), 429);
    EXPECT_TRUE(stage.statements.Take().empty());
    stage.reports.missing = false;
    EXPECT_EQ(ErrorOf(Some("", "")), 0);
}

TEST_F(PrintReportTest, AFailingComponentReachesTheCallerAndLeavesNoRecordsetOpen) {
    AddItem();
    stage.reports.failing = "out of paper";
    EXPECT_NE(ErrorOf(Some("", "")), 0);
    EXPECT_EQ(text, "out of paper");
    // A table with an open recordset could not be dropped.
    EXPECT_NO_THROW(stage.session.database.Execute("drop table tTaskList"));
}

TEST_F(PrintReportTest, AfterPrintingNoRecordsetIsOpen) {
    AddItem();
    PrintReport(stage.session, Some("", ""));
    PrintReport(stage.session, Some("a.fType=2", ""));
    EXPECT_NO_THROW(stage.session.database.Execute("drop table tTaskList"));
}

TEST_F(PrintReportTest, AFailingStatementReachesTheCallerAndNothingIsPrinted) {
    AddItem();
    EXPECT_NE(ErrorOf(Some("noSuchField=1", "")), 0);
    EXPECT_TRUE(stage.reports.printed.empty());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(PrintReportTest, ParametersNeverReachTheNextReport) {
    stage.session.state.reportParameters = {"(a)\tb", "c"};
    PrintReport(stage.session, Some("", ""));  // nothing to print
    AddItem();
    PrintReport(stage.session, Some("", ""));
    EXPECT_TRUE(Job().parameters.empty());
    stage.session.state.reportParameters = {"(a)\tb", "c"};
    stage.reports.missing = true;
    stage.reports.Release();
    EXPECT_EQ(ErrorOf(Some("", "")), 429);
    EXPECT_TRUE(stage.session.state.reportParameters.empty());
}

TEST_F(PrintReportTest, TheHeadingIsTheSettingElseTheCompanyElseTheCataloguesName) {
    EXPECT_EQ(CompanyHeading(stage.session), "本公司");
    stage.session.state.CompName = "某公司";
    EXPECT_EQ(CompanyHeading(stage.session), "某公司");
    stage.settings.values["zvTask.FullName"] = "某某有限公司";
    EXPECT_EQ(CompanyHeading(stage.session), "某某有限公司");
}

class PrintGridTest : public testing::Test {
 protected:
    PrintGridTest() {
        grid.SetColumns({{"编号", 80, true}, {"内部", 60, false}, {"姓名", 90, true}});
    }
    void AddRows(int rows) {
        grid.SetDataRowCount(rows);
        for (int row = 1; row <= rows; row++) {
            for (int column = 1; column <= 3; column++) {
                grid.SetCell(row, column, std::to_string(row) + "/" + std::to_string(column));
            }
        }
    }

    test::TestApplication stage;
    forms::Form form{stage.windows, "frmGrid"};
    forms::Grid grid{form, "Grid1"};
};

TEST_F(PrintGridTest, PrintsTheRowsAndTheVisibleColumns) {
    AddRows(2);
    stage.session.state.UserName = "张三";
    PrintGrid(stage.session, grid, "标题", "副标题", "日期：不限");
    ASSERT_EQ(stage.reports.printed.size(), 1u);
    const auto& printed = stage.reports.printed[0];
    EXPECT_EQ(printed.job.reportName, "");
    EXPECT_EQ(printed.job.title, "标题");
    EXPECT_EQ(printed.job.subTitle, "副标题");
    EXPECT_EQ(printed.job.asked, "日期：不限");
    EXPECT_EQ(printed.job.printMode, kPreview);
    EXPECT_EQ(printed.job.userName, "张三");
    EXPECT_EQ(printed.job.companyHeading, "本公司");
    EXPECT_EQ(printed.job.connection.dataPath, stage.session.state.UserPath);
    EXPECT_FALSE(printed.hadRecordset);
    EXPECT_EQ(printed.headings, (Lines{"编号", "姓名"}));
    EXPECT_EQ(printed.cells, (std::vector<Lines>{{"1/1", "1/3"}, {"2/1", "2/3"}}));
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(PrintGridTest, HandsOverTheSignsOfTheRows) {
    AddRows(2);
    PrintGrid(stage.session, grid, "标题", "");
    grid.sign = [](int row) {
        return row == 2 ? std::optional(forms::Sign{"逾期 3 天", 0}) : std::nullopt;
    };
    PrintGrid(stage.session, grid, "标题", "");
    ASSERT_EQ(stage.reports.printed.size(), 2U);
    EXPECT_EQ(stage.reports.printed[0].signs, (Lines{"", ""}));
    EXPECT_EQ(stage.reports.printed[1].signs, (Lines{"", "逾期 3 天"}));
    EXPECT_EQ(stage.reports.printed[1].cells[1], (Lines{"2/1", "2/3"}));
}

TEST_F(PrintGridTest, DoesNothingWithoutRows) {
    stage.reports.missing = true;
    EXPECT_NO_THROW(PrintGrid(stage.session, grid, "标题", ""));
    EXPECT_TRUE(stage.reports.printed.empty());
}

TEST_F(PrintGridTest, DoesNothingWithoutADataPath) {
    AddRows(1);
    stage.session.state.UserPath = {};
    stage.reports.missing = true;
    EXPECT_NO_THROW(PrintGrid(stage.session, grid, "标题", ""));
    EXPECT_TRUE(stage.reports.printed.empty());
}

TEST_F(PrintGridTest, WithoutTheComponentIsAnError) {
    AddRows(1);
    stage.reports.missing = true;
    EXPECT_THROW(PrintGrid(stage.session, grid, "标题", ""), RuntimeError);
}

TEST_F(PrintGridTest, LeavesTheReportParametersAlone) {
    AddRows(1);
    stage.session.state.reportParameters = {"(a)\tb", "c"};
    PrintGrid(stage.session, grid, "标题", "");
    EXPECT_TRUE(stage.reports.printed[0].job.parameters.empty());
}

}  // namespace
}  // namespace zv::reports

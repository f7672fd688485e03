// The control with secrets in its settings: what it shows, reports, sends and stores.
#include <gtest/gtest.h>

#include "application/test_application.h"
#include "base/text.h"
#include "reports/print_report.h"
#include "resources/error_texts.h"
#include "secrets/connection_texts.h"
#include "session/module_gate.h"
#include "store/odbc/connection_string.h"
#include "store/sqlite/sqlite_connection.h"
#include "windows/query/ask_window.h"

namespace zv::secrets {
namespace {

using test::TestApplication;

std::string Lower(std::string_view words) {
    return text::ToLower(words);
}

/// Opens as the host kit does.
std::unique_ptr<store::Connection> OpenForReal(const store::ConnectionSettings& settings) {
    if (settings.kind < 1) return store::OpenSqlite(settings.dataPath.ForDriver());
    store::odbc::OdbcOptions options = store::odbc::OptionsFor(settings);
    options.connectLimit = std::chrono::seconds(3);
    return store::odbc::OpenOdbc(options);
}

/// A component of somebody else, which repeats all it was given.
std::unique_ptr<store::Connection> Repeat(const store::ConnectionSettings& settings) {
    throw RuntimeError(
        ErrorNumber::DatabaseFailure,
        "Cannot open [" + settings.dataPath.ForDriver() + "] for '" + settings.login.ForDriver() +
            "' with \"" + settings.password.ForDriver() +
            "\" (PWD=" + settings.password.ForDriver() + ";UID=" + settings.login.ForDriver() + ")",
        "Stranger");
}

class SecretsOfTheControl : public testing::TestWithParam<ConnectionCase> {
 protected:
    static void Set(TestApplication& stage, const ConnectionCase& given) {
        stage.control.SetSQLData(given.kind);
        stage.session.state.UserPath = given.path;
        stage.session.state.Password = given.password;
        stage.session.state.UserID = given.login;
        stage.session.state.Default = given.kind == 0 ? "" : "tasks";
    }

    /// Everything that somebody may read.
    void LookAt(TestApplication& stage, const std::string& where) {
        for (const std::string& message : stage.dialogs.messages) Look(message, where + ": box");
        for (const std::string& prompt : stage.dialogs.prompts) Look(prompt, where + ": input box");
        for (const std::string& sql : stage.statements.Take()) Look(sql, where + ": statement");
        for (const auto& [key, value] : stage.settings.values) Look(value, where + ": " + key);
        for (const std::string& line : stage.shell.lines) Look(line, where + ": shell");
        Look(stage.errorText, where + ": error");
        stage.dialogs.messages.clear();
    }
    static void Look(const std::string& text, const std::string& where) {
        EXPECT_EQ(Lower(text).find(Lower(kCanary)), std::string::npos) << where << "\n" << text;
    }
    template <class Act>
    void AsHost(TestApplication& stage, const std::string& where, Act act) {
        try {
            stage.windows.FromHost(act);
            ADD_FAILURE() << where << ": nothing fails";
        } catch (const RuntimeError& error) {
            Look(error.Text(), where + ": text");
            Look(error.what(), where + ": what");
            Look(resources::DescribeError(error, stage.session.state.Language), where);
        }
        LookAt(stage, where);
    }

    void PlayOpenings(TestApplication& stage) {
        AsHost(stage, "refresh", [&] { stage.control.refresh(1, 0); });
        AsHost(stage, "module", [&] { CheckModule(stage.session, "mnuCardPlan", 0, 1); });
        AsHost(stage, "print", [&] {
            reports::Report report;
            report.name = "zvTask02";
            stage.session.database.EnsureConnection();
            reports::PrintReport(stage.session, report);
        });
        stage.windows.FromUser([&] { windows::ShowAsk(stage.session, false, {}); });
        auto* ask = stage.windows.Find<windows::frmAsk>(windows::frmAsk::kName);
        ASSERT_NE(ask, nullptr);
        stage.user.Click(ask->cmdAsk);
        EXPECT_EQ(stage.dialogs.messages.size(), 1u);
        Look(ask->lblCount.Caption(), "query window: line");
        LookAt(stage, "query window");
        stage.user.Close(*ask);
    }
};

TEST_P(SecretsOfTheControl, AreReportedByNothingWhenTheDatabaseCannotBeOpened) {
    TestApplication stage;
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        stage.session.state.Language = language;
        Set(stage, GetParam());
        stage.opener.open = OpenForReal;
        PlayOpenings(stage);
        stage.opener.open = Repeat;
        PlayOpenings(stage);
    }
}

// The page takes paths of files.
using SecretsOfTheOptionsPage = SecretsOfTheControl;
TEST_P(SecretsOfTheOptionsPage, AreReportedByNothing) {
    for (const auto& open : {OpenForReal, Repeat}) {
        TestApplication stage;
        stage.control.refresh(1, 0);
        windows::frmTaskMain* window = stage.Window();
        ASSERT_NE(window, nullptr);
        stage.user.SelectTab(window->SSTab1, windows::kOptionsTab);
        stage.opener.open = open;
        stage.session.state.Password = GetParam().password;
        stage.session.state.UserID = GetParam().login;
        stage.user.Type(window->options.txtAccess, GetParam().path);
        stage.user.Leave(window->options.txtAccess);
        EXPECT_EQ(stage.dialogs.messages.size(), 1u);
        LookAt(stage, "options page");
    }
}

std::string NameOf(const testing::TestParamInfo<ConnectionCase>& info) {
    return "Text" + std::to_string(info.index);
}
std::vector<ConnectionCase> Files() {
    std::vector<ConnectionCase> files;
    for (const ConnectionCase& given : kConnectionCases) {
        if (given.kind == 0) files.push_back(given);
    }
    return files;
}
INSTANTIATE_TEST_SUITE_P(All, SecretsOfTheControl, testing::ValuesIn(kConnectionCases), NameOf);
INSTANTIATE_TEST_SUITE_P(All, SecretsOfTheOptionsPage, testing::ValuesIn(Files()), NameOf);

}  // namespace
}  // namespace zv::secrets

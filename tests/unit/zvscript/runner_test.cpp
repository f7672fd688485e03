#include "runner.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/path.h"
#include "base/text.h"
#include "temporary_folder.h"

namespace zv::script {
namespace {

class RunnerTest : public ::testing::Test {
 protected:
    /// Writes a scenario and answers its name.
    std::string Write(const char* name, const std::string& text) {
        const std::filesystem::path path = folder / name;
        std::ofstream(path, std::ios::binary) << text;
        return Utf8Of(path);
    }

    int Run(const std::vector<std::string>& files) {
        output.clear();
        return Runner(options, [this](const std::string& line) { output.push_back(line); })
            .Run(files);
    }

    test::TemporaryFolder folder;
    RunOptions options;
    std::vector<std::string> output;
};

TEST_F(RunnerTest, ReportsEachFileAndAll) {
    const std::string a = Write("a.zvs", "expect error == \"\"\n");
    const std::string b = Write("空 白.zvs", "");
    EXPECT_EQ(Run({a, b}), 0);
    EXPECT_EQ(output, (std::vector<std::string>{"ok " + a, "ok " + b, "2 passed, 0 failed"}));
}

TEST_F(RunnerTest, AFailureNamesTheLineAndTheNextFileRuns) {
    const std::string bad = Write("bad.zvs",
                                  "set UserName \"张\\t三\"\n"
                                  "expect control.UserName == \"李四\"\n"
                                  "expect control.UserName == \"never looked at\"\n");
    const std::string good = Write("good.zvs", "expect control.UserName == \"\"\n");
    EXPECT_EQ(Run({bad, good}), 1);
    EXPECT_EQ(output,
              (std::vector<std::string>{"FAIL " + bad + ":2: expected \"李四\" got \"张\\t三\"",
                                        "ok " + good, "1 passed, 1 failed"}));
}

TEST_F(RunnerTest, PartsAndAbsencesSayWhatWasExpected) {
    const std::string part = Write("part.zvs", "expect error ~ \"x\"\n");
    const std::string absence = Write("absence.zvs",
                                      "set UserName ab\n"
                                      "expect control.UserName !~ \"b\"\n");
    Run({part, absence});
    EXPECT_EQ(output[0], "FAIL " + part + ":1: expected ~ \"x\" got \"\"");
    EXPECT_EQ(output[1], "FAIL " + absence + ":2: expected !~ \"b\" got \"ab\"");
}

TEST_F(RunnerTest, AWrongFileIsReportedWithLineAndReason) {
    const std::string wrong = Write("wrong.zvs", "show error\nrefresh 0\n");
    const std::string good = Write("good.zvs", "");
    EXPECT_EQ(Run({wrong, good}), 2);
    EXPECT_EQ(output, (std::vector<std::string>{
                          "FAIL " + wrong + ":2: wrong number of words: refresh MODE MODAL",
                          "ok " + good, "1 passed, 1 failed"}));
}

TEST_F(RunnerTest, AWrongFileDoesNotRunAtAll) {
    options.print = true;
    Run({Write("wrong.zvs", "show control.SQLData\nnonsense\n")});
    EXPECT_EQ(output.size(), 2u);
}

TEST_F(RunnerTest, AMissingFileIsWrong) {
    EXPECT_EQ(Run({"nowhere/none.zvs"}), 2);
    EXPECT_EQ(output[0], "FAIL nowhere/none.zvs: no such file");
}

TEST_F(RunnerTest, ShowIsWrittenOnlyWhenAskedFor) {
    const std::string file = Write("show.zvs", "set UserName 张三\nshow control.UserName\n");
    Run({file});
    EXPECT_EQ(output.size(), 2u);
    options.print = true;
    Run({file});
    EXPECT_EQ(output[0], "张三");
}

TEST_F(RunnerTest, EachFileStartsAnew) {
    const std::string file = Write("fresh.zvs",
                                   "expect setting.zvTask.Startup == \"\"\n"
                                   "expect control.UserName == \"\"\n"
                                   "setting zvTask Startup 0\n"
                                   "set UserName x\n"
                                   "database t.db\n"
                                   "expect rows \"select count(*) from cards\" == 0\n"
                                   "sql \"insert into cards(CompName) values('x')\"\n");
    EXPECT_EQ(Run({file, file}), 0) << output[0];
}

TEST_F(RunnerTest, FoldersAreKeptWhenAskedFor) {
    options.keep = folder / "kept";
    const std::string file = Write("story.zvs", "database t.db\nsetting a b c\n");
    EXPECT_EQ(Run({file, file}), 0);
    EXPECT_TRUE(std::filesystem::exists(options.keep / "story" / "t.db"));
    EXPECT_TRUE(std::filesystem::exists(options.keep / "story" / "settings.ini"));
    EXPECT_TRUE(std::filesystem::exists(options.keep / "story-2" / "t.db"));
}

TEST_F(RunnerTest, ADatabaseErrorInTheFixtureFailsTheScenario) {
    const std::string file =
        Write("f.zvs", "database t.db\nsql \"insert into nowhere(a) values(1)\"\n");
    EXPECT_EQ(Run({file}), 1);
    EXPECT_TRUE(output[0].starts_with("FAIL " + file + ":2: error ")) << output[0];
}

TEST_F(RunnerTest, AnUnansweredQuestionFailsTheScenario) {
    const std::string file = Write("q.zvs",
                                   "database t.db\n"
                                   "sql \"insert into tSysFunc(SerialNo,model_Name,password) "
                                   "values(1,'m','secret')\"\n"
                                   "set myPower 1\n"
                                   "call CheckModule m 0 0\n");
    EXPECT_EQ(Run({file}), 1);
    EXPECT_EQ(output[0], "FAIL " + file +
                             ":4: no input is queued for the input box "
                             "\"Please input the Model password !\"");
}

TEST_F(RunnerTest, AnUnknownControlIsAWrongFile) {
    const std::string file = Write("c.zvs",
                                   "clock 2003-03-07T09:30:00\ndatabase t.db\nrefresh 1 0\n"
                                   "expect error == \"\"\nclick frmTaskMain.cmdNothing\n");
    EXPECT_EQ(Run({file}), 2);
    EXPECT_EQ(output[0], "FAIL " + file + ":5: frmTaskMain has no control \"cmdNothing\"");
}

TEST_F(RunnerTest, AWindowThatDoesNotExistFailsTheScenario) {
    const std::string act = Write("act.zvs", "close frmTaskMain\n");
    const std::string look = Write("look.zvs", "expect frmTaskMain.caption == \"x\"\n");
    EXPECT_EQ(Run({act, look}), 1);
    EXPECT_EQ(output[0], "FAIL " + act + ":1: frmTaskMain does not exist now");
    EXPECT_EQ(output[1],
              "FAIL " + look + ":1: expected \"x\" got nothing: frmTaskMain does not exist now");
}

TEST_F(RunnerTest, LinesBehindAModalOpeningRunInsideIt) {
    const std::string file = Write("modal.zvs",
                                   "clock 2003-03-07T09:30:00\n"
                                   "database t.db\n"
                                   "refresh 1 1\n"
                                   "expect frmTaskMain.modal == true\n"
                                   "close frmTaskMain\n"
                                   "expect windows == \"\"\n"
                                   "expect error == \"\"\n");
    EXPECT_EQ(Run({file}), 0) << output[0];
}

TEST_F(RunnerTest, AFailureInsideAModalWindowNamesItsOwnLine) {
    const std::string file = Write("modal.zvs",
                                   "clock 2003-03-07T09:30:00\n"
                                   "database t.db\n"
                                   "refresh 1 1\n"
                                   "expect frmTaskMain.modal == maybe\n"
                                   "nothing\n");
    EXPECT_EQ(Run({file}), 2);
    const std::string failing = Write("failing.zvs",
                                      "clock 2003-03-07T09:30:00\n"
                                      "database t.db\n"
                                      "refresh 1 1\n"
                                      "expect frmTaskMain.modal == maybe\n"
                                      "expect error == \"\"\n");
    EXPECT_EQ(Run({failing}), 1);
    EXPECT_EQ(output[0], "FAIL " + failing + ":4: expected \"maybe\" got \"true\"");
}

TEST_F(RunnerTest, WhatNeverStoodFailsTheScenario) {
    const std::string box = Write("box.zvs", "show error\nduring box\n  show error\nshow error\n");
    const std::string second = Write("second.zvs",
                                     "database t.db\n"
                                     "during box\n  show error\n"
                                     "during box\n  show error\n"
                                     "call CheckText \"it's\"\n");
    const std::string nested = Write("nested.zvs",
                                     "during box\n  during menu\n    show error\n"
                                     "call CheckText \"it's\"\n");
    EXPECT_EQ(Run({box, second, nested}), 1);
    EXPECT_EQ(output[0],
              "FAIL " + box + ":2: expected a message box to stand got none until the end");
    EXPECT_EQ(output[1],
              "FAIL " + second + ":4: expected a message box to stand got none until the end");
    EXPECT_EQ(output[2], "FAIL " + nested + ":2: expected a menu to stand got none until the end");
}

TEST_F(RunnerTest, AFailureWhileABoxStandsNamesItsOwnLine) {
    const std::string file = Write("f.zvs",
                                   "during box\n"
                                   "  expect error == maybe\n"
                                   "  expect error == never\n"
                                   "call CheckText \"it's\"\n"
                                   "expect messages == never\n");
    EXPECT_EQ(Run({file}), 1);
    EXPECT_EQ(output[0], "FAIL " + file + ":2: expected \"maybe\" got \"\"");
}

TEST_F(RunnerTest, OnlyABoxThatStandsCanBeLookedAt) {
    const std::string box = "call CheckText \"it's\"\n";
    const std::string early = Write("early.zvs", "picture box a\n");
    const std::string faults = Write("faults.zvs", "expect box.faults == \"\"\n");
    const std::string after =
        Write("after.zvs", "during box\n  show error\n" + box + "picture box a\n");
    const std::string good =
        Write("good.zvs", "during box\n  picture box a\n  expect box.faults == \"\"\n" + box);
    EXPECT_EQ(Run({early, faults, after, good}), 1);
    EXPECT_EQ(output[0], "FAIL " + early + ":1: no box stands");
    EXPECT_EQ(output[1], "FAIL " + faults + ":1: expected \"\" got nothing: no box stands");
    EXPECT_EQ(output[2], "FAIL " + after + ":4: no box stands");
    EXPECT_EQ(output[3], "ok " + good);
}

TEST_F(RunnerTest, OnlyAMenuOfTheBarCanBeOpenedForAPicture) {
    const std::string start = "clock 2003-03-07T09:30:00\ndatabase t.db\nrefresh 1 0\n";
    const std::string entry = Write("entry.zvs", start + "picture frmTaskMain.mnuTaskAdd a\n");
    const std::string hidden = Write("hidden.zvs", start + "picture frmTaskMain.mnuDone a\n");
    const std::string bar = Write("bar.zvs", start + "picture frmTaskMain.mnuTask a\n");
    EXPECT_EQ(Run({entry, hidden, bar}), 1);
    EXPECT_EQ(output[0],
              "FAIL " + entry + ":4: frmTaskMain.mnuTaskAdd is in no menu bar that is shown");
    EXPECT_EQ(output[1],
              "FAIL " + hidden + ":4: frmTaskMain.mnuDone is in no menu bar that is shown");
    EXPECT_EQ(output[2], "ok " + bar);
}

TEST_F(RunnerTest, TheUserReachesNoWindowBehindABox) {
    const std::string start = "clock 2003-03-07T09:30:00\ndatabase t.db\nrefresh 1 0\nduring box\n";
    const std::string act = "call CheckText \"it's\"\n";
    const std::string click = Write("click.zvs", start + "  click frmTaskMain.cmdExit\n" + act);
    const std::string menu = Write("menu.zvs", start + "  menu frmTaskMain.mnuAsk\n" + act);
    const std::string free = Write("free.zvs", start +
                                                   "  call frmAsk\n"
                                                   "  click frmAsk.cmdAsk\n"
                                                   "  tick frmTaskMain.Timer1\n"
                                                   "  close frmTaskMain\n"
                                                   "  expect windows == \"\"\n" +
                                                   act);
    EXPECT_EQ(Run({click, menu, free}), 1);
    EXPECT_EQ(output[0], "FAIL " + click + ":5: frmTaskMain is behind the message box that stands");
    EXPECT_EQ(output[1], "FAIL " + menu + ":5: frmTaskMain is behind the message box that stands");
    EXPECT_EQ(output[2], "ok " + free);
}

TEST_F(RunnerTest, AModalWindowOpenedWhileABoxStandsIsClosedWithTheLines) {
    const std::string file = Write("m.zvs",
                                   "clock 2003-03-07T09:30:00\ndatabase t.db\n"
                                   "during box\n"
                                   "  refresh 1 1\n"
                                   "  expect windows == \"frmTaskMain shown\"\n"
                                   "call CheckText \"it's\"\n"
                                   "expect windows == \"\"\n"
                                   "expect error == \"\"\n");
    EXPECT_EQ(Run({file}), 0) << output[0];
}

TEST_F(RunnerTest, AModalWindowLeftOpenIsClosedAtTheEnd) {
    const std::string file = Write("open.zvs",
                                   "clock 2003-03-07T09:30:00\ndatabase t.db\nrefresh 1 1\n"
                                   "expect windows == \"frmTaskMain shown\"\n");
    EXPECT_EQ(Run({file, file}), 0) << output[0];
}

}  // namespace
}  // namespace zv::script

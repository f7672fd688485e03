#include "monkey/monkey.h"

#include <gtest/gtest.h>

#include <set>

#include "driver/headless/headless_driver.h"
#include "forms/buttons.h"
#include "forms/text_box.h"
#include "monkey/shrinking.h"
#include "monkey/watched_playback.h"
#include "scenario_stage.h"
#include "temporary_folder.h"

namespace zv::script {
namespace {

using Acts = std::vector<RecordedAct>;

Acts Numbered(int count) {
    Acts acts;
    for (int i = 0; i < count; i++) acts.push_back({"line " + std::to_string(i), {}});
    return acts;
}

TEST(ToScenario, AnswersStandBeforeTheLineThatAsks) {
    EXPECT_EQ(
        ToScenario({{"click a.b", {{Standing::Box, "ok", {}}, {Standing::Input, "\"甲\"", {}}}},
                    {"close a", {}}}),
        "answer ok\ninput \"甲\"\nclick a.b\nclose a\n");
}

TEST(ToScenario, EachBoxOfALineThatIsInterruptedHasItsOwnLines) {
    const RecordedBox interrupted{
        Standing::Box, "no", {{"refresh 1 0", {{Standing::Box, "cancel", {}}}}}};
    EXPECT_EQ(ToScenario({{"click a.b", {{Standing::Box, "ok", {}}, interrupted}}}),
              "answer ok\nduring box\n    show windows\n"
              "answer no\nduring box\n    answer cancel\n    refresh 1 0\nclick a.b\n");
}

TEST(Shrink, LeavesWhatTheFaultNeeds) {
    const auto needs = [](const Acts& acts) {
        std::set<std::string> lines;
        for (const RecordedAct& act : acts) lines.insert(act.line);
        return lines.contains("line 3") && lines.contains("line 77");
    };
    const Acts shortest = Shrink(Numbered(100), 0, 1000, needs);
    ASSERT_EQ(shortest.size(), 2U);
    EXPECT_EQ(shortest[0].line, "line 3");
    EXPECT_EQ(shortest[1].line, "line 77");
}

TEST(Shrink, KeepsTheFirstAndStopsAskingInTime) {
    int asked = 0;
    const Acts shortest = Shrink(Numbered(10), 4, 1000, [](const Acts&) { return true; });
    EXPECT_EQ(shortest.size(), 4U);
    EXPECT_EQ(Shrink(Numbered(10), 4, 3, [&](const Acts&) { return asked++, false; }).size(), 10U);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(Shrink(Numbered(1), 0, 9, [](const Acts&) { return true; }).size(), 0U);
}

/// A stage on which somebody plays.
class OnAStage : public ::testing::Test {
 protected:
    template <typename Act>
    void Play(Player& player, const Act& act) {
        const test::TemporaryFolder folder;
        const auto engine = MakeScriptEngine("embedded");
        ScenarioStage* playing = nullptr;
        ScenarioStage stage(folder.Path(), BackendKind::Headless, *engine,
                            {.modal = [&](forms::Form& form) { player.RunInside(*playing, form); },
                             .menu = [&] { player.RunInMenu(*playing); }});
        playing = &stage;
        stage.dialogs.whileStanding = [&](const StandingBox& box) {
            player.RunWhileStanding(stage, box);
        };
        stage.dialogs.onAnswered = [&](const std::string& line) { player.OnAnswered(line); };
        act(stage);
    }
    std::string PlayMonkey(std::uint32_t seed, int steps) {
        Monkey monkey(seed, steps);
        Play(monkey, [&](ScenarioStage& stage) { monkey.Run(stage); });
        EXPECT_EQ(monkey.Fault(), "");
        return ToScenario(monkey.Acts());
    }
    /// What is found when `act` happens during a line, on a stage with a window and an item.
    template <typename Act>
    std::string FaultOf(const std::string& line, const Act& act) {
        std::string fault;
        Playback opening(CompileScript(kOpening));
        Play(opening, [&](ScenarioStage& stage) {
            opening.Run(stage);
            Invariants invariants;
            invariants.LineBegins(stage, line);
            act(stage, invariants);
            fault = invariants.LineEnded(stage);
        });
        EXPECT_EQ(opening.Reason(), "");
        return fault;
    }
    static constexpr const char* kOpening =
        "clock 2003-03-07T09:30:00\ndatabase t.db\nitem fID=1 taskTitle=甲\nrefresh 1 0\n";
};

TEST_F(OnAStage, ASeedRepeatsItself) {
    const std::string first = PlayMonkey(5, 60);
    EXPECT_EQ(PlayMonkey(5, 60), first);
    EXPECT_NE(PlayMonkey(6, 60), first);
}

TEST_F(OnAStage, WhatAMonkeyDidPlaysAgain) {
    const std::string scenario = PlayMonkey(7, 80);
    WatchedPlayback watched(scenario);
    Play(watched.Lines(), [&](ScenarioStage& stage) { watched.Lines().Run(stage); });
    EXPECT_EQ(watched.Fault(), "");
}

TEST_F(OnAStage, NothingIsFoundWhereNothingIsWrong) {
    EXPECT_EQ(FaultOf("click frmTaskMain.cmdSeek", [](ScenarioStage&, Invariants&) {}), "");
}

TEST_F(OnAStage, RowsThatChangeWithoutAWordAreFound) {
    const auto change = [](ScenarioStage& stage, Invariants&) {
        stage.host.Execute("update tTaskList set tDone=1");
    };
    EXPECT_TRUE(
        FaultOf("key frmTaskMain.tvwTask F5", change).starts_with("rows changed and nobody"));
    EXPECT_EQ(FaultOf("sql \"update\"", change), "");
    const auto told = [&](const char* box) {
        return [&change, box](ScenarioStage& stage, Invariants& invariants) {
            change(stage, invariants);
            invariants.BoxAnswered(box);
        };
    };
    EXPECT_EQ(FaultOf("click a.b", told("33|sure?|ok")), "");
    EXPECT_TRUE(FaultOf("click a.b", told("33|sure?|cancel"))
                    .starts_with("rows changed although everything was cancelled"));
}

TEST_F(OnAStage, AReminderMarksOneItemWithoutAQuestion) {
    const auto mark = [](ScenarioStage& stage, Invariants&) {
        stage.host.Execute("update tTaskList set tDone=1");
    };
    for (const char* line :
         {"key frmRemind.grdDue Ctrl+D", "press frmRemind Alt+H", "click frmRemind.cmdInHand"}) {
        EXPECT_EQ(FaultOf(line, mark), "") << line;
    }
    for (const char* line : {"key frmRemind.grdDue Delete", "click frmRemind.cmdLater",
                             "key frmTaskMain.tvwTask Ctrl+D"}) {
        EXPECT_TRUE(FaultOf(line, mark).starts_with("rows changed and nobody")) << line;
    }
    const auto cancelled = [&](ScenarioStage& stage, Invariants& invariants) {
        mark(stage, invariants);
        invariants.BoxAnswered("33|sure?|cancel");
    };
    EXPECT_TRUE(FaultOf("key frmRemind.grdDue Ctrl+D", cancelled)
                    .starts_with("rows changed although everything was cancelled"));
}

TEST_F(OnAStage, RemindersMarkSeveralItemsOnlyAfterAQuestion) {
    const auto markAll = [](ScenarioStage& stage, Invariants& invariants) {
        stage.host.Execute("insert into tTaskList(fType,taskTitle,tDone) values(0,'x',0)");
        invariants.LineBegins(stage, "key frmRemind.grdDue Ctrl+D");
        stage.host.Execute("update tTaskList set tDone=1");
    };
    EXPECT_TRUE(FaultOf("sql \"insert\"", markAll).starts_with("rows changed and nobody"));
}

TEST_F(OnAStage, AnOpenEditorThatCannotSaveIsFound) {
    EXPECT_EQ(
        FaultOf("click a.b",
                [](ScenarioStage& stage, Invariants&) {
                    forms::Form& form = *stage.windows.Find("frmTaskMain");
                    dynamic_cast<forms::TextBox&>(*form.FindControl("txtTitle2")).SetLocked(false);
                }),
        "frmTaskMain: the title can be typed in and not saved");
}

/// Sees one property of one control otherwise than it is.
class Shortsighted final : public driver::HeadlessDriver {
 public:
    Shortsighted(std::string control, std::string property)
        : control_(std::move(control)), property_(std::move(property)) {}
    std::optional<std::string> Read(forms::Control& control, const std::string& property,
                                    const std::vector<int>& arguments) override {
        if (control.Name() == control_ && property == property_) return "other";
        return HeadlessDriver::Read(control, property, arguments);
    }

 private:
    std::string control_;
    std::string property_;
};

TEST_F(OnAStage, AScreenThatShowsSomethingElseIsFound) {
    const auto find = [&](const char* control, const char* property, bool behindBox) {
        std::string found;
        FaultOf("click a.b", [&](ScenarioStage& stage, Invariants&) {
            Shortsighted driver(control, property);
            found = ScreenFault(driver, *stage.windows.Find("frmTaskMain"), behindBox);
        });
        return found;
    };
    for (const auto& [control, property] : {std::pair("tvwTask", "nodes"),
                                            {"tvwTask", "focus"},
                                            {"cmdSeek", "caption"},
                                            {"cmdSeek", "enabled"},
                                            {"tvwTask", "selected"},
                                            {"SSTab1", "tab"}}) {
        EXPECT_TRUE(find(control, property, false).starts_with("the screen shows something else: "))
            << control << ' ' << property;
    }
    EXPECT_EQ(find("none", "text", false), "");
    EXPECT_EQ(find("tvwTask", "focus", true), "");
}

TEST_F(OnAStage, AStatementThatNoEngineTakesIsFound) {
    const std::string fault = FaultOf("click a.b", [](ScenarioStage& stage, Invariants&) {
        stage.statements.OnStatement("select fID from tTaskList where taskTitle='O'Brien'");
    });
    EXPECT_TRUE(fault.starts_with("the engine does not take")) << fault;
}

TEST_F(OnAStage, WhatIsAskedOfTheTablesBesideIsNoFault) {
    EXPECT_EQ(FaultOf("click a.b",
                      [](ScenarioStage& stage, Invariants&) {
                          stage.statements.OnStatement("select * from zvReminder where fID=0");
                      }),
              "");
}

}  // namespace
}  // namespace zv::script

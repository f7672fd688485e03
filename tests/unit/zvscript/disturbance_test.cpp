#include "disturbance.h"

#include <gtest/gtest.h>

#include "forms/window_system.h"
#include "playback.h"
#include "scenario_stage.h"
#include "script_text.h"
#include "temporary_folder.h"

namespace zv::script {
namespace {

Outcome Of(std::string rows, std::vector<std::string> boxes = {}, std::string error = {}) {
    return {1, "?", std::move(rows), std::move(boxes), std::move(error)};
}

TEST(Judge, TheSameRowsAreRightWhateverIsReported) {
    EXPECT_EQ(Judge(Of("a\n"), Of("a\n")), "");
    EXPECT_EQ(Judge(Of("a\n", {"64|done|ok"}), Of("a\n")), "");
}

TEST(Judge, OtherRowsNeedAWord) {
    EXPECT_EQ(Judge(Of("a\nb\n"), Of("a\nc\n")),
              "other rows and not a word: expected \"b\" got \"c\"");
    EXPECT_EQ(Judge(Of("a\n", {"48|gone|ok"}), Of("b\n", {"48|gone|ok"})),
              "other rows and not a word: expected \"a\" got \"b\"");
    EXPECT_EQ(Judge(Of("a\n", {}, "5 x"), Of("b\n", {}, "5 x")),
              "other rows and not a word: expected \"a\" got \"b\"");
}

TEST(Judge, ABoxOrAnErrorMoreIsAWord) {
    EXPECT_EQ(Judge(Of("a\n", {"33|sure?|ok"}), Of("b\n", {"33|sure?|ok", "48|gone|ok"})), "");
    EXPECT_EQ(Judge(Of("a\n", {"48|x|ok"}), Of("b\n", {"48|x|ok", "48|x|ok"})), "");
    EXPECT_EQ(Judge(Of("a\n"), Of("b\n", {}, "400 ")), "");
}

TEST(MakeDisturbance, KnowsItsNames) {
    for (const char* name : {"refresh0", "refresh1", "refresh9", "close", "opener"}) {
        EXPECT_EQ(MakeDisturbance(name).name, name);
    }
    EXPECT_THROW(MakeDisturbance("refresh2"), ScriptError);
}

// A program that asks, and only then reads whom the answer is about.
class Replay : public ::testing::Test {
 protected:
    enum class Reads { Before, After };

    Outcome Play(Reads reads, const Disturbance* disturbance) {
        QuestionWatcher recording;
        QuestionWatcher disturbing(1, disturbance ? *disturbance : none_);
        QuestionWatcher& watcher = disturbance ? disturbing : recording;
        const Action ask = [this, reads](ScenarioStage& stage) {
            std::string whom = selected_;
            stage.dialogs.QueueAnswer(forms::Answer::Ok);
            stage.windows.ShowMessage("sure?", forms::box::kOkCancel);
            if (reads == Reads::After) whom = selected_;
            stage.host.Execute("update tRsBasic set fName='x' where fCode='" + whom + "'");
        };
        selected_ = "1";
        std::vector<Step> steps = CompileScript("database t.db\nstaff fCode=1\nstaff fCode=2\n");
        steps.push_back({4, ask, OpenMenu::Closes, {}});
        Playback playback(std::move(steps), &watcher);
        const test::TemporaryFolder folder;
        const auto engine = MakeScriptEngine("embedded");
        ScenarioStage stage(folder.Path(), BackendKind::Headless, *engine, {});
        stage.dialogs.whileStanding = [&](const StandingBox& box) {
            playback.RunWhileStanding(stage, box);
        };
        stage.dialogs.onAnswered = [&](const std::string& line) { playback.OnAnswered(line); };
        playback.Run(stage);
        EXPECT_FALSE(playback.Failed()) << playback.Reason();
        twice_ = watcher.Twice();
        return watcher.Outcomes().at(1);
    }

    std::string selected_;
    std::string twice_;
    Disturbance none_{"none", [](ScenarioStage&) {}};
    Disturbance selects_{"selects", [this](ScenarioStage&) { selected_ = "2"; }};
};

TEST_F(Replay, WhatIsReadBeforeTheQuestionStandsTheDisturbance) {
    const Outcome undisturbed = Play(Reads::Before, nullptr);
    EXPECT_EQ(undisturbed.line, 4);
    EXPECT_EQ(undisturbed.boxes, std::vector<std::string>{"1|sure?|ok"});
    EXPECT_EQ(Judge(undisturbed, Play(Reads::Before, &selects_)), "");
}

TEST_F(Replay, WhatIsReadAfterTheQuestionIsFound) {
    EXPECT_EQ(Judge(Play(Reads::After, nullptr), Play(Reads::After, &selects_)),
              "other rows and not a word: expected \"1|x\" got \"1|\"");
}

TEST_F(Replay, ABoxThatStandsTwiceIsFound) {
    const Disturbance again{"again", [](ScenarioStage& stage) {
                                stage.windows.ShowMessage("sure?", forms::box::kOkCancel);
                            }};
    Play(Reads::Before, &again);
    EXPECT_EQ(twice_, "sure?");
}

}  // namespace
}  // namespace zv::script

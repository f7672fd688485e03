#include "scripted_dialogs.h"

#include <gtest/gtest.h>

namespace zv::script {
namespace {

using forms::Answer;

class ScriptedDialogsTest : public ::testing::Test {
 protected:
    ScriptedDialogsTest() {
        dialogs.onProblem = [this](const std::string& text) { problems.push_back(text); };
    }
    ScriptedDialogs dialogs;
    std::vector<std::string> problems;
};

TEST_F(ScriptedDialogsTest, ABoxWithOneButtonAnswersItself) {
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"saved", forms::box::kInformation, ""}), Answer::Ok);
    EXPECT_EQ(dialogs.messages, (std::vector<std::string>{"64|saved|ok"}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(ScriptedDialogsTest, QueuedAnswersGoInTheirOrder) {
    dialogs.QueueAnswer(Answer::No);
    dialogs.QueueAnswer(Answer::Cancel);
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"a", forms::box::kYesNo + forms::box::kQuestion, ""}),
              Answer::No);
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"b", forms::box::kOkCancel, ""}), Answer::Cancel);
    EXPECT_EQ(dialogs.messages, (std::vector<std::string>{"36|a|no", "1|b|cancel"}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(ScriptedDialogsTest, ABoxWithSeveralButtonsNeedsAnAnswer) {
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"a", forms::box::kOkCancel, ""}), Answer::Cancel);
    EXPECT_EQ(problems.size(), 1u);
}

TEST_F(ScriptedDialogsTest, AnAnswerThatTheBoxHasNoButtonForIsAProblem) {
    dialogs.QueueAnswer(Answer::Yes);
    dialogs.ShowMessage(nullptr, {"a", forms::box::kOkCancel, ""});
    EXPECT_EQ(problems.size(), 1u);
}

TEST_F(ScriptedDialogsTest, EnterGivesTheAnswerOfTheDefaultButton) {
    dialogs.QueueEnter();
    dialogs.QueueEnter();
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"a", forms::box::kOkCancel, ""}), Answer::Ok);
    EXPECT_EQ(
        dialogs.ShowMessage(nullptr, {"b", forms::box::kOkCancel, "", forms::DefaultButton::Last}),
        Answer::Cancel);
    EXPECT_EQ(dialogs.defaults, (std::vector<std::string>{"ok", "cancel"}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(ScriptedDialogsTest, InputBoxesAndTheFileDialogTakeQueuedTexts) {
    dialogs.QueueInput("secret");
    dialogs.QueueInput(std::nullopt);
    dialogs.QueueInput("other.db");
    EXPECT_EQ(dialogs.AskText(nullptr, "?", "", true), "secret");
    EXPECT_EQ(dialogs.AskText(nullptr, "?", "", true), std::nullopt);
    EXPECT_EQ(dialogs.ChooseFile(nullptr, {}), "other.db");
    EXPECT_TRUE(problems.empty());
    EXPECT_EQ(dialogs.AskText(nullptr, "?", "", true), std::nullopt);
    EXPECT_EQ(problems.size(), 1u);
}

TEST_F(ScriptedDialogsTest, WhatIsQueuedWhenABoxComesUpIsItsOwn) {
    int depth = 0;
    dialogs.whileStanding = [&](const StandingBox& box) {
        EXPECT_EQ(box.kind, Standing::Box);
        EXPECT_TRUE(dialogs.messages.empty());
        if (depth++ > 0) return;
        dialogs.QueueAnswer(Answer::No);
        EXPECT_EQ(dialogs.ShowMessage(nullptr, {"inner", forms::box::kYesNo, ""}), Answer::No);
        dialogs.messages.clear();
    };
    dialogs.QueueAnswer(Answer::Ok);
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"outer", forms::box::kOkCancel, ""}), Answer::Ok);
    EXPECT_EQ(dialogs.messages, (std::vector<std::string>{"1|outer|ok"}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(ScriptedDialogsTest, ABoxWithoutAnAnswerTakesWhatIsQueuedWhileItStands) {
    dialogs.whileStanding = [&](const StandingBox& box) {
        if (box.kind == Standing::Box) dialogs.QueueAnswer(Answer::Yes);
        if (box.kind == Standing::Input) dialogs.QueueInput("late");
    };
    EXPECT_EQ(dialogs.ShowMessage(nullptr, {"a", forms::box::kYesNo, ""}), Answer::Yes);
    EXPECT_EQ(dialogs.AskText(nullptr, "?", "", false), "late");
    EXPECT_EQ(dialogs.ChooseFile(nullptr, {}), "late");
    EXPECT_TRUE(problems.empty());
}

TEST_F(ScriptedDialogsTest, ABoxThatStandsCanBeAskedOfOthers) {
    ScriptedDialogs others;
    others.onProblem = [&](const std::string& problem) { problems.push_back(problem); };
    others.QueueInput("typed");
    others.QueueInput("path");
    int boxes = 0;
    dialogs.whileStanding = [&](const StandingBox& box) {
        boxes++;
        EXPECT_EQ(dialogs.Innermost()->text, box.text);
        dialogs.Innermost()->ask(others);
    };
    dialogs.QueueInput("a");
    dialogs.QueueInput("b");
    dialogs.ShowMessage(nullptr, {"said", forms::box::kOkOnly, ""});
    dialogs.AskText(nullptr, "?", "", false);
    dialogs.ChooseFile(nullptr, {});
    EXPECT_EQ(boxes, 3);
    EXPECT_EQ(dialogs.Innermost(), nullptr);
    EXPECT_EQ(others.messages, (std::vector<std::string>{"0|said|ok"}));
    EXPECT_TRUE(problems.empty());
}

}  // namespace
}  // namespace zv::script

// What runs once no handler is under way any more.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "doubles/queued_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"

namespace zv::forms {
namespace {

class AfterHandler : public testing::Test {
 protected:
    std::function<void()> Note(const std::string& word) {
        return [this, word] { words.push_back(word); };
    }
    using Words = std::vector<std::string>;

    doubles::QueuedDialogs dialogs;
    Words words;
    headless::HeadlessBackend backend{dialogs};
    WindowSystem windows{backend};
};

TEST_F(AfterHandler, RunsInOrderWhenTheOutermostHandlerHasEnded) {
    windows.FromHost([&] {
        windows.FromUser([&] { windows.AfterHandler(Note("first")); });
        windows.AfterHandler(Note("second"));
        words.push_back("handler");
    });
    EXPECT_EQ(words, (Words{"handler", "first", "second"}));
}

TEST_F(AfterHandler, RunsAlsoWhenTheHandlerFails) {
    EXPECT_THROW(windows.FromHost([&] {
        windows.AfterHandler(Note("after"));
        throw RuntimeError(ErrorNumber::Overflow);
    }),
                 RuntimeError);
    EXPECT_EQ(words, Words{"after"});
}

TEST_F(AfterHandler, MayCallBackAndIsFollowedByWhatThatCauses) {
    windows.FromUser([&] {
        windows.AfterHandler([&] {
            words.push_back("one");
            windows.FromHost([&] { windows.AfterHandler(Note("caused")); });
            words.push_back("one ends");
        });
        windows.AfterHandler(Note("two"));
    });
    EXPECT_EQ(words, (Words{"one", "two", "caused", "one ends"}));
}

TEST_F(AfterHandler, WaitsForNoModalWindow) {
    backend.modalLoop = [&](Form& form) {
        words.push_back("loop");
        windows.FromUser([&] { windows.AfterHandler(Note("in the loop")); });
        form.UserClose();
    };
    windows.FromHost([&] {
        windows.AfterHandler(Note("before the loop"));
        windows.Create<Form>("frmTest").Show(true);
        words.push_back("handler");
    });
    EXPECT_EQ(words, (Words{"before the loop", "loop", "in the loop", "handler"}));
}

TEST_F(AfterHandler, AWindowThatItClosesRunsNoLoop) {
    backend.modalLoop = [&](Form&) { words.push_back("loop"); };
    windows.FromHost([&] {
        Form& form = windows.Create<Form>("frmTest");
        windows.AfterHandler([&form] { form.Unload(); });
        form.Show(true);
    });
    EXPECT_EQ(words, Words{});
    EXPECT_TRUE(windows.IsEmpty());
}

TEST_F(AfterHandler, WhoActsWhileABoxStandsIsNotHeldBackByIt) {
    dialogs.whileStanding = [&](const std::string&) {
        windows.FromHost([&] { windows.AfterHandler(Note("host")); });
        words.push_back("box");
    };
    windows.FromUser([&] {
        windows.ShowMessage("text", 0);
        windows.AfterHandler(Note("user"));
        words.push_back("handler");
    });
    EXPECT_EQ(words, (Words{"host", "box", "handler", "user"}));
}

TEST_F(AfterHandler, AWindowThatWasSeenIsReportedOnceAndOneThatWasNotNever) {
    windows.onClosed = [&](const std::string& name) { words.push_back(name); };
    windows.FromHost([&] {
        windows.Create<Form>("frmSeen").Show(false);
        windows.Create<Form>("frmUnseen").Load();
    });
    windows.UnloadAll();
    EXPECT_EQ(words, Words{"frmSeen"});
}

}  // namespace
}  // namespace zv::forms

// Which boxes may stand beside each other, and whose act it is that would show one more.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "doubles/queued_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"
#include "forms/menu.h"
#include "forms/timer.h"

namespace zv::forms {
namespace {

constexpr ErrorNumber kOwnError = ErrorNumber::DatabaseFailure;

// Others may act in a box before it is answered.
class Boxes : public testing::Test {
 protected:
    Boxes() {
        dialogs.whileStanding = [this](const std::string& text) {
            shown.push_back(text);
            if (const auto act = std::exchange(meanwhile, nullptr)) act();
        };
    }
    /// The number of the error that leaves a call of the host; 0 when none does.
    int Host(const std::function<void()>& act) {
        try {
            windows.FromHost(act);
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.Number());
        }
        return 0;
    }
    BoxText Refusal(const std::string& reason) {
        return BoxText("Cannot open: ") + Inserted{reason};
    }
    void Show(const std::string& reason) { windows.ShowMessage(Refusal(reason), 0); }

    std::vector<std::string> shown;   ///< of boxes of every kind
    std::function<void()> meanwhile;  ///< runs in the next box, once
    doubles::QueuedDialogs dialogs;
    headless::HeadlessBackend backend{dialogs};
    WindowSystem windows{backend};
    int inner = 0;
};

constexpr int kModalShown = static_cast<int>(ErrorNumber::ModalFormShown);

TEST_F(Boxes, ACallOfTheHostShowsNoSecondBoxOfAKind) {
    meanwhile = [&] { inner = Host([&] { Show("b"); }); };
    EXPECT_EQ(Host([&] { Show("a"); }), 0);
    EXPECT_EQ(inner, kModalShown);
    EXPECT_EQ(shown, std::vector<std::string>{"Cannot open: a"});
}

TEST_F(Boxes, ItFailsWithTheErrorThatTheBoxWouldHaveShown) {
    const RuntimeError own(kOwnError, "gone");
    const auto show = [&] { windows.ShowMessage(Refusal("a"), 0, {}, &own); };
    meanwhile = [&] { inner = Host(show); };
    EXPECT_EQ(Host(show), 0);
    EXPECT_EQ(inner, static_cast<int>(kOwnError));
}

TEST_F(Boxes, ACallGoesOnBehindABoxThatOnlyInformsAndEndsAtAQuestion) {
    std::string steps;
    const auto act = [&] {
        Show("a");
        steps += "shown ";
        windows.ShowMessage("Sure?", box::kOkCancel);
        steps += "asked ";
    };
    meanwhile = [&] {
        meanwhile = [&] { inner = Host(act); };
        windows.FromUser([&] { windows.ShowMessage("Sure?", box::kOkCancel); });
    };
    EXPECT_EQ(Host(act), 0);
    EXPECT_EQ(inner, kModalShown);
    EXPECT_EQ(steps, "shown shown asked ");
}

TEST_F(Boxes, TheSameTextIsTheSameKindHoweverItWasPutTogether) {
    meanwhile = [&] { inner = Host([&] { Show("a"); }); };
    windows.FromUser([] { throw RuntimeError(kOwnError, "Cannot open: a"); });
    EXPECT_EQ(inner, kModalShown);
    EXPECT_EQ(shown.size(), 1u);
}

TEST_F(Boxes, OfAnotherKindStandsBeside) {
    meanwhile = [&] { inner = Host([&] { windows.ShowMessage("Cannot open: ", 0); }); };
    EXPECT_EQ(Host([&] { Show("a"); }), 0);
    EXPECT_EQ(inner, 0);
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(Boxes, OfTheSameKindIsShownAgainAfterTheFirstWasAnswered) {
    EXPECT_EQ(Host([&] { Show("a"); }), 0);
    EXPECT_EQ(Host([&] { Show("a"); }), 0);
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(Boxes, TheUserSeesAMessageWhateverIsOpen) {
    meanwhile = [&] { windows.FromUser([&] { Show("b"); }); };
    EXPECT_EQ(Host([&] { Show("a"); }), 0);
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(Boxes, ABoxOfTheUsersActHoldsBackTheHosts) {
    meanwhile = [&] { inner = Host([&] { Show("b"); }); };
    windows.FromUser([&] { Show("a"); });
    EXPECT_EQ(inner, kModalShown);
    EXPECT_EQ(shown.size(), 1u);
}

TEST_F(Boxes, AnErrorInAHandlerThatTheHostSetOffIsShownOnceAndReachesTheHost) {
    const auto failing = [&] {
        windows.FromUser([] { throw RuntimeError(kOwnError, "gone"); });
        inner++;
    };
    int second = 0;
    meanwhile = [&] { second = Host(failing); };
    EXPECT_EQ(Host(failing), 0);
    EXPECT_EQ(second, static_cast<int>(kOwnError));
    EXPECT_EQ(inner, 2) << "the call goes on behind the handler";
    EXPECT_EQ(shown, std::vector<std::string>{"gone"});
}

TEST_F(Boxes, AnInputBoxStandsOnceForTheHost) {
    const auto ask = [&] { windows.AskText("password"); };
    meanwhile = [&] { inner = Host(ask); };
    EXPECT_EQ(Host(ask), 0);
    EXPECT_EQ(inner, kModalShown);
    EXPECT_EQ(shown, std::vector<std::string>{"password"});
}

TEST_F(Boxes, ATimerShowsNothingTwice) {
    Form form(windows, "form");
    Timer timer(form, "Timer1", 1000);
    timer.SetRunning(true);
    timer.onTimer = [] { throw RuntimeError(kOwnError, "gone"); };
    meanwhile = [&] { timer.UserTick(); };
    timer.UserTick();
    EXPECT_EQ(shown, std::vector<std::string>{"gone"});
    timer.UserTick();
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(Boxes, InAModalWindowTheUserActs) {
    Form form(windows, "form");
    backend.modalLoop = [&](Form& modal) {
        windows.FromUser([&] { Show("a"); });
        modal.Unload();
    };
    meanwhile = [&] { windows.FromUser([&] { Show("b"); }); };
    EXPECT_EQ(Host([&] { form.Show(true); }), 0);
    EXPECT_EQ(shown.size(), 2u);
}

class Modal : public Boxes {
 protected:
    bool During(const std::function<void()>& act) {
        bool stands = false;
        meanwhile = [&] { stands = windows.HasModal(); };
        act();
        EXPECT_FALSE(windows.HasModal());
        return stands;
    }
};

TEST_F(Modal, BoxesInputsAndFileDialogsCount) {
    EXPECT_FALSE(windows.HasModal());
    EXPECT_TRUE(During([&] { windows.ShowMessage("a", 0); }));
    EXPECT_TRUE(During([&] { windows.AskText("a"); }));
    EXPECT_TRUE(During([&] { windows.ChooseFile({}); }));
}

TEST_F(Modal, AModalWindowCounts) {
    Form beside(windows, "beside");
    beside.Show(false);
    EXPECT_FALSE(windows.HasModal());
    Form form(windows, "form");
    bool stands = false;
    backend.modalLoop = [&](Form& modal) {
        stands = windows.HasModal();
        modal.Unload();
    };
    form.Show(true);
    EXPECT_TRUE(stands);
    EXPECT_FALSE(windows.HasModal());
}

TEST_F(Modal, ABoxThatFailsDoesNotStay) {
    meanwhile = [] { throw RuntimeError(kOwnError); };
    EXPECT_EQ(Host([&] { Show("a"); }), static_cast<int>(kOwnError));
    EXPECT_FALSE(windows.HasModal());
}

}  // namespace
}  // namespace zv::forms

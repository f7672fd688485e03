#include "forms/buttons.h"
#include "forms/label.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct PlainForm : TestForm {
    explicit PlainForm(WindowSystem& windows, std::string name = "frmTest")
        : TestForm(windows, std::move(name)) {}
    CommandButton cmdOK{*this, "cmdOK"};
    Label lblText{*this, "lblText"};
};

struct NamedForm : PlainForm {
    static constexpr std::string_view kName = "frmTest";
    explicit NamedForm(WindowSystem& windows) : PlainForm(windows, std::string(kName)) {}
};

class Windows : public Contract {
 protected:
    using Prepare = std::function<void(NamedForm&)>;
    /// Number of the error that opening the window ended with; 0 none.
    int Opening(bool modal, const Prepare& prepare) {
        try {
            windows_.Open<NamedForm>(modal, prepare);
            return 0;
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.Number());
        }
    }
    PlainForm& Make(const std::string& name = "frmTest") {
        auto& form = windows_.Create<PlainForm>(name);
        Arrange(form);
        return form;
    }
};

TEST_F(Windows, AWindowIsLoadedOnceAndHiddenUntilShown) {
    auto& form = Make();
    int loads = 0;
    form.onLoad = [&] { loads++; };
    form.Load();
    form.Load();
    EXPECT_EQ(loads, 1);
    EXPECT_FALSE(form.IsShown());
    EXPECT_FALSE(form.cmdOK.Visible());
    form.Show(false);
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(form.IsShown());
    EXPECT_TRUE(form.cmdOK.Visible());
}

TEST_F(Windows, NothingIsVisibleWhileAWindowLoads) {
    auto& form = Make();
    bool seen = true;
    form.onLoad = [&] { seen = form.cmdOK.Visible(); };
    form.Show(false);
    EXPECT_FALSE(seen);
}

TEST_F(Windows, TheCaptionFollows) {
    auto& form = Make();
    form.SetCaption("任务报警器");
    form.Show(false);
    EXPECT_EQ(driver().ReadCaption(form), "任务报警器");
    form.SetCaption("任務管理器");
    EXPECT_EQ(driver().ReadCaption(form), "任務管理器");
}

TEST_F(Windows, WindowsAreListedInOrderOfCreation) {
    Make("frmA");
    Make("frmB").Show(false);
    ASSERT_EQ(windows_.Windows().size(), 2u);
    EXPECT_EQ(windows_.Windows()[0]->Name(), "frmA");
    EXPECT_EQ(windows_.Windows()[1]->Name(), "frmB");
}

TEST_F(Windows, ClosingByTheFrameUnloads) {
    auto& form = Make();
    form.onUnload = [this](bool&) { events_.push_back("unload"); };
    form.Show(false);
    driver().Close(form);
    EXPECT_EQ(events_, std::vector<std::string>{"unload"});
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, UnloadCanBeCancelled) {
    auto& form = Make();
    bool keep = true;
    form.onUnload = [&](bool& cancel) { cancel = keep; };
    form.Show(false);
    driver().Close(form);
    EXPECT_EQ(windows_.Windows().size(), 1u);
    EXPECT_TRUE(form.IsShown());
    keep = false;
    driver().Close(form);
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, AHandlerMayUnloadItsOwnWindow) {
    auto& form = Make();
    form.cmdOK.onClick = [&] {
        form.Unload();
        events_.push_back("after");
    };
    form.Show(false);
    driver().Click(form.cmdOK);
    EXPECT_EQ(events_, std::vector<std::string>{"after"});
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, AnErrorThatLeavesAHandlerIsShownAndTheWindowGoesOn) {
    auto& form = Make();
    form.cmdOK.onClick = [] { throw RuntimeError(ErrorNumber::Overflow, "溢出"); };
    form.Show(false);
    driver().Click(form.cmdOK);
    EXPECT_EQ(dialogs().messages, std::vector<std::string>{"16|6 溢出"});
    EXPECT_TRUE(form.IsShown());
    driver().Click(form.cmdOK);
    EXPECT_EQ(dialogs().messages.size(), 2u);
}

TEST_F(Windows, AnErrorWhileLoadingReachesTheCallerAndLeavesNoWindow) {
    auto& form = Make();
    form.onLoad = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    EXPECT_THROW(windows_.FromHost([&] { form.Show(false); }), RuntimeError);
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, AModalWindowReturnsWhenItIsGone) {
    auto& form = Make();
    stand_->SetModalLoop([&](Form& modal) {
        EXPECT_EQ(&modal, &form);
        EXPECT_TRUE(modal.IsModal());
        events_.push_back("loop");
        driver().Close(modal);
    });
    windows_.FromHost([&] {
        form.Show(true);
        events_.push_back("returned");
    });
    EXPECT_EQ(events_, (std::vector<std::string>{"loop", "returned"}));
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, AModalWindowBlocksTheOthers) {
    auto& behind = Make("frmBehind");
    auto& modal = Make("frmModal");
    behind.cmdOK.onClick = [this] { events_.push_back("behind"); };
    behind.Show(false);
    stand_->SetModalLoop([&](Form& form) {
        EXPECT_THROW(driver().Click(behind.cmdOK), driver::DriverError);
        driver().Close(form);
    });
    windows_.FromHost([&] { modal.Show(true); });
    driver().Click(behind.cmdOK);
    EXPECT_EQ(events_, std::vector<std::string>{"behind"});
}

TEST_F(Windows, ModalAndModelessDoNotMix) {
    auto& first = Make("frmFirst");
    auto& second = Make("frmSecond");
    first.Show(false);
    try {
        first.Show(true);
        FAIL() << "shown twice";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FormAlreadyShown);
    }
    auto& modal = Make("frmModal");
    stand_->SetModalLoop([&](Form& form) {
        try {
            second.Show(false);
            ADD_FAILURE() << "modeless over modal";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::ModalFormShown);
        }
        driver().Close(form);
    });
    windows_.FromHost([&] { modal.Show(true); });
}

TEST_F(Windows, OpeningMakesAWindowOnce) {
    int made = 0;
    const Prepare prepare = [&](NamedForm& form) {
        form.onLoad = [&] { made++; };
        form.SetCaption("第" + std::to_string(made) + "次");
    };
    EXPECT_EQ(Opening(false, prepare), 0);
    EXPECT_EQ(Opening(false, prepare), 0);
    EXPECT_EQ(made, 1);
    ASSERT_EQ(windows_.Windows().size(), 1u);
    EXPECT_EQ(windows_.Windows()[0]->Caption(), "第1次");
}

TEST_F(Windows, ARefusedOpeningLeavesEverythingAsItWas) {
    auto& modal = Make("frmModal");
    int prepared = 0;
    stand_->SetModalLoop([&](Form& form) {
        EXPECT_EQ(Opening(false, [&](NamedForm&) { prepared++; }), 401);
        EXPECT_EQ(windows_.Windows(), std::vector<Form*>{&modal});
        driver().Close(form);
    });
    windows_.FromHost([&] { modal.Show(true); });
    EXPECT_EQ(Opening(false, [](NamedForm&) {}), 0);
    EXPECT_EQ(Opening(true, [&](NamedForm&) { prepared++; }), 400);
    EXPECT_TRUE(windows_.Windows()[0]->IsShown());
    EXPECT_EQ(prepared, 0);
}

TEST_F(Windows, AnOpeningThatFailsAnywhereLeavesNoWindowAndBlocksNothing) {
    auto& other = Make("frmOther");
    other.cmdOK.onClick = [this] { events_.push_back("other"); };
    other.Show(false);
    const auto fail = [] { throw RuntimeError(ErrorNumber::Overflow); };
    for (const bool modal : {false, true}) {
        EXPECT_EQ(Opening(modal, [&](NamedForm&) { fail(); }), 6);
        EXPECT_EQ(Opening(modal, [&](NamedForm& form) { form.onLoad = fail; }), 6);
        EXPECT_EQ(Opening(modal, [&](NamedForm& form) { form.onResize = fail; }), 6);
        EXPECT_EQ(Opening(modal, [&](NamedForm& form) { form.onActivate = fail; }), 6);
        EXPECT_EQ(windows_.Windows(), std::vector<Form*>{&other});
        EXPECT_EQ(windows_.ModalForm(), nullptr);
        driver().Click(other.cmdOK);
    }
    EXPECT_EQ(events_, (std::vector<std::string>{"other", "other"}));
}

TEST_F(Windows, AWindowThatIsNotWantedIsGoneUnseen) {
    bool seen = true;
    windows_.OpenIf<NamedForm>(
        false, [&](NamedForm& form) { form.onUnload = [&](bool&) { seen = form.WasSeen(); }; },
        [](NamedForm&) { return false; });
    EXPECT_FALSE(seen);
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, AWindowIsNotShownWhileItLoads) {
    int inside = 0;
    EXPECT_EQ(Opening(false,
                      [&](NamedForm& form) {
                          form.onLoad = [&] { inside = Opening(false, [](NamedForm&) {}); };
                      }),
              0);
    EXPECT_EQ(inside, 401);
    EXPECT_TRUE(windows_.Windows()[0]->IsShown());
}

TEST_F(Windows, AWindowThatIsUnloadedWhileItLoadsIsNotShown) {
    EXPECT_EQ(Opening(true, [](NamedForm& form) { form.onLoad = [&form] { form.Unload(); }; }), 0);
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Windows, AModalLoopThatEndsTakesItsWindowAlong) {
    bool unloaded = false;
    stand_->SetModalLoop([](Form&) {});
    EXPECT_EQ(Opening(true,
                      [&](NamedForm& form) {
                          form.onUnload = [&](bool& cancel) { cancel = unloaded = true; };
                      }),
              0);
    EXPECT_TRUE(unloaded);
    EXPECT_TRUE(windows_.Windows().empty());
    stand_->SetModalLoop([](Form&) { throw RuntimeError(ErrorNumber::Overflow); });
    EXPECT_EQ(Opening(true, [](NamedForm&) {}), 6);
    EXPECT_TRUE(windows_.Windows().empty());
    EXPECT_EQ(windows_.ModalForm(), nullptr);
}

TEST_F(Windows, ResizingNotifiesTheWindow) {
    auto& form = Make();
    form.SetSizable(true);
    form.onResize = [&] { form.lblText.Move({0, 0, form.ClientSize().width, 20}); };
    form.Show(false);
    driver().Resize(form, {500, 400});
    EXPECT_EQ(form.ClientSize(), (Size{500, 400}));
    EXPECT_EQ(form.lblText.Bounds().width, 500);
}

TEST_F(Windows, CenterPutsTheWindowInTheMiddle) {
    auto& form = Make();
    form.Center();
    const Rect area = windows_.GetBackend().WorkArea();
    EXPECT_EQ(form.Bounds().left, area.left + (area.width - form.Bounds().width) / 2);
    EXPECT_EQ(form.Bounds().top, area.top + (area.height - form.Bounds().height) / 2);
}

TEST_F(Windows, AWindowThatIsLargerThanTheScreenStartsAtItsCorner) {
    auto& form = Make();
    const Rect area = windows_.GetBackend().WorkArea();
    form.Move({5, 5, area.width + 200, area.height + 100});
    form.Center();
    EXPECT_EQ(form.Bounds().left, area.left);
    EXPECT_EQ(form.Bounds().top, area.top);
}

TEST_F(Windows, AWindowIsNeverShownLargerThanTheScreen) {
    stand_->SetWorkArea({40, 30, 500, 300});
    auto& form = Make();
    form.SetClientSize({700, 400});
    form.Center();
    form.Show(false);
    EXPECT_EQ(form.Bounds(), (Rect{40, 30, 500, 300}));
    // The controls keep their room, of which a part is seen.
    EXPECT_EQ(form.ClientSize(), (Size{700, 400}));
    EXPECT_LE(form.View().Inside().width, 500);
    EXPECT_LE(form.View().Inside().height, 300);
    EXPECT_TRUE(form.View().HasHorizontalBar());
    EXPECT_TRUE(form.View().HasVerticalBar());
}

TEST_F(Windows, AWindowThatWouldStandOutsideStartsInside) {
    stand_->SetWorkArea({40, 30, 900, 700});
    auto& form = Make();
    form.Move({-200, 900, form.Bounds().width, form.Bounds().height});
    form.Show(false);
    EXPECT_EQ(form.Bounds().left, 40);
    EXPECT_EQ(form.Bounds().Bottom(), 730);
    EXPECT_FALSE(form.View().HasVerticalBar());
}

TEST_F(Windows, AWindowThatGrowsWhileItIsSeenStaysOnTheScreen) {
    stand_->SetWorkArea({0, 0, 800, 600});
    auto& form = Make();
    form.SetClientSize({300, 200});
    form.Move({400, 350, form.Bounds().width, form.Bounds().height});
    form.Show(false);
    form.SetClientSize({600, 500});
    EXPECT_LE(form.Bounds().Right(), 800);
    EXPECT_LE(form.Bounds().Bottom(), 600);
    EXPECT_EQ(form.ClientSize(), (Size{600, 500}));
    EXPECT_FALSE(form.View().HasVerticalBar());
}

TEST_F(Windows, ASizableWindowBelowItsSmallestSizeScrolls) {
    auto& form = Make();
    form.SetSizable(true);
    form.SetMinimumClientSize({400, 300});
    form.Show(false);
    driver().Resize(form, {340, 260});
    EXPECT_EQ(form.ClientSize(), (Size{400, 300}));
    EXPECT_TRUE(form.View().HasHorizontalBar());
    EXPECT_TRUE(form.View().HasVerticalBar());
    driver().Resize(form, {500, 400});
    EXPECT_EQ(form.ClientSize(), (Size{500, 400}));
    EXPECT_FALSE(form.View().HasVerticalBar());
}

TEST_F(Windows, TheFocusComesIntoView) {
    stand_->SetWorkArea({0, 0, 400, 300});
    auto& form = windows_.Create<PlainForm>();
    form.SetClientSize({900, 700});
    form.cmdOK.Move({800, 650, 90, 30});
    form.Show(false);
    ASSERT_EQ(form.ActiveControl(), &form.cmdOK);
    const Viewport& view = form.View();
    EXPECT_GE(view.Offset().x + view.View().width, 890);
    EXPECT_GE(view.Offset().y + view.View().height, 680);
    EXPECT_LE(view.Offset().x, 800);
    EXPECT_LE(view.Offset().y, 650);
    // What was scrolled into view can be clicked there.
    int clicks = 0;
    form.cmdOK.onClick = [&] { clicks++; };
    driver().Click(form.cmdOK);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Windows, WiderTextMeasuresWider) {
    Backend& backend = windows_.GetBackend();
    const Size narrow = backend.MeasureText("任务");
    const Size wide = backend.MeasureText("任务管理器");
    EXPECT_GT(wide.width, narrow.width);
    EXPECT_GT(backend.MeasureText("一\n二").height, narrow.height);
}

TEST_F(Windows, ManyWindowsComeAndGo) {
    for (int i = 0; i < 20; i++) {
        auto& form = Make();
        form.Show(false);
        driver().Close(form);
    }
    EXPECT_TRUE(windows_.Windows().empty());
}

}  // namespace
}  // namespace zv::contract

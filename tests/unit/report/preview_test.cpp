#include "report/preview/preview_form.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "base/errors.h"
#include "doubles/queued_dialogs.h"
#include "driver/headless/headless_driver.h"
#include "forms/headless/headless_backend.h"
#include "report/preview/page_setup_form.h"
#include "report_stage.h"

namespace zv::report {
namespace {

class Preview : public testing::Test {
 protected:
    PreviewForm& Open(Document document) {
        document_ = std::move(document);
        report_ = std::make_unique<Arrangement>(document_, TestFonts(), setup_);
        PreviewActions actions;
        actions.print = [this] { done_ += "print "; };
        actions.savePdf = [] { throw RuntimeError(ErrorNumber::PermissionDenied, "in use"); };
        actions.saveCsv = [this] { done_ += "csv "; };
        actions.keepSetup = [this](const PageSetup& setup) { kept_.push_back(setup); };
        actions.paint = [this](const forms::CanvasSurface&, const Page& page, double, double,
                               double) { painted_ = TextOf(page); };
        auto& form = windows_.Create<PreviewForm>(*report_, std::move(actions));
        form.Show(false);
        return form;
    }
    std::string Painted(PreviewForm& form) {
        form.picPage.UserPaint({});
        return painted_;
    }

    doubles::QueuedDialogs dialogs_;
    forms::headless::HeadlessBackend backend_{dialogs_};
    forms::WindowSystem windows_{backend_};
    driver::HeadlessDriver user_;
    Document document_;
    PageSetup setup_;
    std::unique_ptr<Arrangement> report_;
    std::vector<PageSetup> kept_;
    std::string done_;
    std::string painted_;
};

TEST_F(Preview, AnotherScaleLosesNeitherPageNorZoom) {
    const auto at = [&](int dpi) {
        backend_.SetMonitors(forms::Monitors({{{0, 0, 2560, 1600}, {0, 0, 2560, 1560}, dpi}}));
    };
    at(forms::Scale::kUsualDpi);
    PreviewForm& form = Open(ListOf(200));
    user_.Click(form.cmdNext);
    user_.Click(form.cmdZoomIn);
    const std::string zoom = form.cboZoom.Text();
    for (const int dpi : {120, 168, 240, forms::Scale::kUsualDpi}) {
        at(dpi);
        EXPECT_EQ(user_.ReadDpi(form), dpi);
        EXPECT_EQ(user_.ReadFaults(form), std::vector<std::string>()) << dpi;
        EXPECT_EQ(form.PageNumber(), 2);
        EXPECT_EQ(form.txtPage.Text(), "2");
        EXPECT_EQ(form.cboZoom.Text(), zoom);
    }
}

TEST_F(Preview, TurnsPagesAndStopsAtTheEnds) {
    PreviewForm& form = Open(ListOf(200));
    const int last = report_->Pages().PageCount();
    EXPECT_FALSE(form.cmdFirst.Enabled());
    EXPECT_FALSE(form.cmdPrevious.Enabled());
    user_.Click(form.cmdNext);
    EXPECT_EQ(form.PageNumber(), 2);
    EXPECT_EQ(form.txtPage.Text(), "2");
    EXPECT_TRUE(form.cmdPrevious.Enabled());
    user_.Click(form.cmdLast);
    EXPECT_EQ(form.PageNumber(), last);
    EXPECT_FALSE(form.cmdNext.Enabled());
    EXPECT_FALSE(form.cmdLast.Enabled());
    user_.Click(form.cmdPrevious);
    EXPECT_EQ(form.PageNumber(), last - 1);
    user_.Click(form.cmdFirst);
    EXPECT_EQ(form.PageNumber(), 1);
}

TEST_F(Preview, ShowsThePageThatItNames) {
    PreviewForm& form = Open(ListOf(200));
    user_.Click(form.cmdNext);
    EXPECT_NE(Painted(form).find("第 2/"), std::string::npos);
}

TEST_F(Preview, APageNumberIsTakenByEnter) {
    PreviewForm& form = Open(ListOf(200));
    user_.Type(form.txtPage, "3");
    user_.Key(form.txtPage, forms::key::kEnter);
    EXPECT_EQ(form.PageNumber(), 3);
}

TEST_F(Preview, APageNumberBeyondTheEndIsTheLastPage) {
    PreviewForm& form = Open(ListOf(200));
    user_.Type(form.txtPage, "999999");
    user_.Leave(form.txtPage);
    EXPECT_EQ(form.PageNumber(), report_->Pages().PageCount());
    user_.Type(form.txtPage, "0");
    user_.Leave(form.txtPage);
    EXPECT_EQ(form.PageNumber(), 1);
}

TEST_F(Preview, ATextThatIsNoNumberIsPutBack) {
    PreviewForm& form = Open(ListOf(200));
    user_.Click(form.cmdNext);
    user_.Type(form.txtPage, "x");
    user_.Leave(form.txtPage);
    EXPECT_EQ(form.txtPage.Text(), "2");
}

TEST_F(Preview, OnePageNeedsNoTurning) {
    PreviewForm& form = Open(ListOf(3));
    EXPECT_FALSE(form.cmdNext.Enabled());
    EXPECT_FALSE(form.txtPage.Enabled());
    EXPECT_EQ(form.lblPages.Caption(), "/ 1 页");
}

TEST_F(Preview, ZoomsByStepsAndStopsAtTheLast) {
    PreviewForm& form = Open(ListOf(3));
    user_.Pick(form.cboZoom, 5);
    EXPECT_EQ(form.View().Percent(), 100);
    user_.Click(form.cmdZoomIn);
    EXPECT_EQ(form.View().Percent(), 125);
    user_.Click(form.cmdZoomOut);
    user_.Click(form.cmdZoomOut);
    EXPECT_EQ(form.View().Percent(), 75);
    EXPECT_EQ(form.cboZoom.Text(), "75%");
    while (form.cmdZoomIn.Enabled()) user_.Click(form.cmdZoomIn);
    EXPECT_EQ(form.View().Percent(), 400);
}

TEST_F(Preview, PlusAndMinusZoomByOneStep) {
    PreviewForm& form = Open(ListOf(3));
    user_.Pick(form.cboZoom, 5);
    const auto press = [&](int code) {
        forms::KeyEvent event{code};
        form.picPage.UserKeyDown(event);
    };
    // Of the block of digits, and beside the letters.
    for (const int plus : {0x6B, 0xBB}) {
        ASSERT_EQ(form.View().Percent(), 100);
        press(plus);
        EXPECT_EQ(form.View().Percent(), 125);
        press(plus == 0x6B ? 0x6D : 0xBD);
        EXPECT_EQ(form.View().Percent(), 100);
        press(plus == 0x6B ? 0x6D : 0xBD);
        EXPECT_EQ(form.View().Percent(), 75);
        press(plus);
    }
}

TEST_F(Preview, TheZoomBoxNamesEveryStep) {
    PreviewForm& form = Open(ListOf(3));
    while (form.cmdZoomOut.Enabled()) {
        user_.Click(form.cmdZoomOut);
        EXPECT_EQ(form.cboZoom.Text(), std::to_string(form.View().Percent()) + "%");
    }
    EXPECT_EQ(form.cboZoom.Text(), "25%");
    std::string steps;
    while (form.cmdZoomIn.Enabled()) {
        user_.Click(form.cmdZoomIn);
        EXPECT_EQ(form.cboZoom.Text(), std::to_string(form.View().Percent()) + "%");
        steps += form.cboZoom.Text() + " ";
    }
    EXPECT_NE(steps.find("300%"), std::string::npos) << steps;
}

TEST_F(Preview, EveryEntryOfTheZoomBoxDoesWhatItSays) {
    PreviewForm& form = Open(ListOf(3));
    for (int entry = 2; entry < form.cboZoom.ListCount(); entry++) {
        user_.Pick(form.cboZoom, entry);
        EXPECT_EQ(std::to_string(form.View().Percent()) + "%", form.cboZoom.Text());
    }
}

TEST_F(Preview, AtTheEndsTheFocusGoesToThePageBox) {
    PreviewForm& form = Open(ListOf(200));
    form.cmdLast.SetFocus();
    user_.Click(form.cmdLast);
    EXPECT_EQ(form.ActiveControl(), &form.txtPage);
    form.cmdPrevious.SetFocus();
    while (form.cmdPrevious.Enabled()) {
        EXPECT_EQ(form.ActiveControl(), &form.cmdPrevious);
        user_.Click(form.cmdPrevious);
    }
    EXPECT_EQ(form.ActiveControl(), &form.txtPage);
    form.cmdNext.SetFocus();
    while (form.cmdNext.Enabled()) user_.Click(form.cmdNext);
    EXPECT_EQ(form.ActiveControl(), &form.txtPage);
    EXPECT_EQ(form.txtPage.Text(), std::to_string(form.PageNumber()));
}

TEST_F(Preview, AtTheLastZoomTheFocusGoesToTheZoomBox) {
    PreviewForm& form = Open(ListOf(3));
    form.cmdZoomIn.SetFocus();
    while (form.cmdZoomIn.Enabled()) user_.Click(form.cmdZoomIn);
    EXPECT_EQ(form.ActiveControl(), &form.cboZoom);
    form.cmdZoomOut.SetFocus();
    while (form.cmdZoomOut.Enabled()) user_.Click(form.cmdZoomOut);
    EXPECT_EQ(form.ActiveControl(), &form.cboZoom);
}

TEST_F(Preview, LeavesOutEmptyColumnsWhenTheUserWantsThatAndRemembersIt) {
    Document document = ListOf(3);
    for (auto& row : document.table.rows) row[3].clear();
    PreviewForm& form = Open(document);
    EXPECT_TRUE(form.chkNoEmpty.Enabled());
    EXPECT_NE(Painted(form).find("执行\n"), std::string::npos);
    user_.Click(form.chkNoEmpty);
    EXPECT_EQ(Painted(form).find("执行\n"), std::string::npos);
    ASSERT_EQ(kept_.size(), 1u);
    EXPECT_TRUE(kept_[0].leavesOutEmpty);
    user_.Click(form.chkNoEmpty);
    EXPECT_NE(Painted(form).find("执行\n"), std::string::npos);
    EXPECT_FALSE(kept_.at(1).leavesOutEmpty);
}

TEST_F(Preview, WithoutEmptyColumnsThereIsNothingToLeaveOut) {
    setup_.leavesOutEmpty = true;
    PreviewForm& form = Open(ListOf(3));
    EXPECT_FALSE(form.chkNoEmpty.Enabled());
    EXPECT_TRUE(form.chkNoEmpty.Checked());
    EXPECT_TRUE(kept_.empty());
    form.Unload();
    EXPECT_FALSE(Open(ItemOf({{"TaskTitle", "主题", ""}})).chkNoEmpty.Visible());
}

TEST_F(Preview, PagesFollowTheSetupThatTheUserAccepts) {
    PreviewForm& form = Open(ListOf(200));
    const int before = report_->Pages().PageCount();
    user_.Click(form.cmdLast);
    backend_.modalLoop = [&](forms::Form& modal) {
        auto& window = dynamic_cast<PageSetupForm&>(modal);
        EXPECT_EQ(window.cboPaper.Text(), "A4 (210 x 297 mm)");
        user_.Pick(window.cboPaper, static_cast<int>(Paper::A3));
        user_.Pick(window.cboDirection, static_cast<int>(Direction::Upright));
        user_.Click(window.cmdOK);
    };
    user_.Click(form.cmdSetup);
    const int after = report_->Pages().PageCount();
    EXPECT_LT(after, before);
    EXPECT_EQ(form.PageNumber(), after);
    EXPECT_EQ(form.lblPages.Caption(), "/ " + std::to_string(after) + " 页");
    EXPECT_FALSE(form.cmdNext.Enabled());
    EXPECT_NE(Painted(form).find("第 " + std::to_string(after) + "/"), std::string::npos);
    ASSERT_EQ(kept_.size(), 1u);
    EXPECT_EQ(kept_[0].paper, Paper::A3);
    EXPECT_EQ(kept_[0], report_->Pages().Setup());
}

TEST_F(Preview, EveryFieldOfTheSetupIsTakenOver) {
    PreviewForm& form = Open(ListOf(3));
    struct Change {
        std::function<void(PageSetupForm&)> enter;
        std::function<void(PageSetup&)> expect;
    };
    const auto pick = [&](forms::ComboBox& box, auto entry) {
        user_.Pick(box, static_cast<int>(entry));
    };
    const std::vector<Change> changes{
        {[&](auto& window) { pick(window.cboPaper, Paper::A5); },
         [](PageSetup& setup) { setup.paper = Paper::A5; }},
        {[&](auto& window) { pick(window.cboDirection, Direction::Across); },
         [](PageSetup& setup) { setup.direction = Direction::Across; }},
        {[&](auto& window) { pick(window.cboDirection, Direction::Upright); },
         [](PageSetup& setup) { setup.direction = Direction::Upright; }},
        {[&](auto& window) { user_.Type(window.txtLeft, "11"); },
         [](PageSetup& setup) { setup.margins.left = 11; }},
        {[&](auto& window) { user_.Type(window.txtRight, "12"); },
         [](PageSetup& setup) { setup.margins.right = 12; }},
        {[&](auto& window) { user_.Type(window.txtTop, "13"); },
         [](PageSetup& setup) { setup.margins.top = 13; }},
        {[&](auto& window) { user_.Type(window.txtBottom, "14"); },
         [](PageSetup& setup) { setup.margins.bottom = 14; }},
        {[&](auto& window) { user_.Click(window.cmdUsual); }, [](PageSetup& setup) { setup = {}; }},
    };
    PageSetup expected = setup_;
    for (std::size_t i = 0; i < changes.size(); i++) {
        backend_.modalLoop = [&](forms::Form& modal) {
            auto& window = dynamic_cast<PageSetupForm&>(modal);
            changes[i].enter(window);
            user_.Click(window.cmdOK);
        };
        user_.Click(form.cmdSetup);
        changes[i].expect(expected);
        ASSERT_EQ(kept_.size(), i + 1);
        EXPECT_EQ(kept_[i], expected) << i;
        EXPECT_EQ(report_->Pages().Setup(), expected) << i;
    }
}

TEST_F(Preview, TheSetupStandsInTheMiddle) {
    PreviewForm& form = Open(ListOf(3));
    int seen = 0;
    backend_.modalLoop = [&](forms::Form& modal) {
        auto& window = dynamic_cast<PageSetupForm&>(modal);
        const forms::Rect area = backend_.WorkArea();
        const forms::Rect bounds = window.Bounds();
        EXPECT_EQ(bounds.left, area.left + (area.width - bounds.width) / 2);
        EXPECT_EQ(bounds.top, area.top + (area.height - bounds.height) / 2);
        seen++;
        user_.Click(window.cmdCancel);
    };
    user_.Click(form.cmdSetup);
    EXPECT_EQ(seen, 1);
}

TEST_F(Preview, ItsNumbersAreTypedWithoutAnInputMethod) {
    PreviewForm& form = Open(ListOf(200));
    EXPECT_TRUE(form.txtPage.NumericKeyboard());
    int margins = 0;
    backend_.modalLoop = [&](forms::Form& modal) {
        auto& window = dynamic_cast<PageSetupForm&>(modal);
        for (const forms::TextBox* box :
             {&window.txtLeft, &window.txtRight, &window.txtTop, &window.txtBottom}) {
            EXPECT_TRUE(box->NumericKeyboard()) << box->Name();
            EXPECT_EQ(box->MaxLength(), 2) << box->Name();
            margins++;
        }
        user_.Click(window.cmdCancel);
    };
    user_.Click(form.cmdSetup);
    EXPECT_EQ(margins, 4);
}

TEST_F(Preview, ACancelledOrUnchangedSetupKeepsThePages) {
    PreviewForm& form = Open(ListOf(3));
    const Layout* pages = &report_->Pages();
    for (const bool accepts : {false, true}) {
        backend_.modalLoop = [&](forms::Form& modal) {
            auto& window = dynamic_cast<PageSetupForm&>(modal);
            if (!accepts) user_.Pick(window.cboPaper, static_cast<int>(Paper::A5));
            user_.Click(accepts ? window.cmdOK : window.cmdCancel);
        };
        user_.Click(form.cmdSetup);
        EXPECT_EQ(&report_->Pages(), pages);
    }
    EXPECT_TRUE(kept_.empty());
}

TEST_F(Preview, AMarginOutOfBoundsIsToldAndTheWindowStays) {
    PreviewForm& form = Open(ListOf(3));
    backend_.modalLoop = [&](forms::Form& modal) {
        auto& window = dynamic_cast<PageSetupForm&>(modal);
        for (const char* text : {"4", "41", "", "1x"}) {
            user_.Type(window.txtRight, text);
            user_.Click(window.cmdOK);
            ASSERT_TRUE(window.IsShown()) << text;
            EXPECT_EQ(window.ActiveControl(), &window.txtRight);
        }
        user_.Click(window.cmdUsual);
        EXPECT_EQ(window.txtRight.Text(), "16");
        user_.Type(window.txtRight, "40");
        user_.Click(window.cmdOK);
    };
    user_.Click(form.cmdSetup);
    EXPECT_EQ(dialogs_.messages,
              std::vector<std::string>(4, "48|页边距应是 5 到 40 的整数（毫米）。"));
    ASSERT_EQ(kept_.size(), 1u);
    EXPECT_EQ(kept_[0].margins, (Margins{16, 16, 40, 16}));
}

TEST_F(Preview, TheToolbarFitsANarrowScreen) {
    PreviewForm& form = Open(ListOf(200));
    EXPECT_LE(form.MinimumClientSize().width, 980);
    for (const forms::Control* control : form.Controls()) {
        if (control == &form.picPage || !control->Visible()) continue;
        EXPECT_LE(control->Bounds().Right(), form.MinimumClientSize().width) << control->Name();
        EXPECT_LE(control->Bounds().Bottom(), form.picPage.Bounds().top) << control->Name();
    }
}

TEST_F(Preview, FitWidthFollowsTheWindow) {
    PreviewForm& form = Open(ListOf(3));
    EXPECT_EQ(form.View().Mode(), ZoomMode::FitWidth);
    const int before = form.View().Percent();
    user_.Resize(form, {form.ClientSize().width + 200, form.ClientSize().height});
    EXPECT_GT(form.View().Percent(), before);
    EXPECT_EQ(form.picPage.Horizontal().Last(), 0);
}

TEST_F(Preview, TheWholePageNeedsNoScrolling) {
    PreviewForm& form = Open(ListOf(3));
    user_.Pick(form.cboZoom, 1);
    EXPECT_EQ(form.picPage.Vertical().Last(), 0);
    EXPECT_EQ(form.picPage.Horizontal().Last(), 0);
}

TEST_F(Preview, TheWheelScrollsAndThenTurnsThePage) {
    PreviewForm& form = Open(ListOf(200));
    form.picPage.UserWheel(-1, false);
    EXPECT_GT(form.picPage.Vertical().position, 0);
    EXPECT_EQ(form.PageNumber(), 1);
    while (form.picPage.Vertical().position < form.picPage.Vertical().Last()) {
        form.picPage.UserWheel(-1, false);
    }
    form.picPage.UserWheel(-1, false);
    EXPECT_EQ(form.PageNumber(), 2);
    EXPECT_EQ(form.picPage.Vertical().position, 0);
    form.picPage.UserWheel(1, false);
    EXPECT_EQ(form.PageNumber(), 1);
    EXPECT_EQ(form.picPage.Vertical().position, form.picPage.Vertical().Last());
}

TEST_F(Preview, TheWheelWithControlZooms) {
    PreviewForm& form = Open(ListOf(3));
    user_.Pick(form.cboZoom, 5);
    form.picPage.UserWheel(1, true);
    EXPECT_EQ(form.View().Percent(), 125);
}

TEST_F(Preview, KeysScrollAndTurn) {
    PreviewForm& form = Open(ListOf(200));
    user_.Key(form.picPage, forms::key::kDown);
    EXPECT_GT(form.picPage.Vertical().position, 0);
    user_.Key(form.picPage, 35);
    EXPECT_EQ(form.PageNumber(), report_->Pages().PageCount());
    user_.Key(form.picPage, 36);
    EXPECT_EQ(form.PageNumber(), 1);
    user_.Key(form.cmdPrint, 34);
    EXPECT_EQ(form.PageNumber(), 2);
}

TEST_F(Preview, KeysOfThePageScrollAndTurnIt) {
    PreviewForm& form = Open(ListOf(200));
    user_.Pick(form.cboZoom, form.cboZoom.ListCount() - 1);
    const int last = report_->Pages().PageCount();
    const auto place = [&] {
        return forms::Position{form.picPage.Horizontal().position,
                               form.picPage.Vertical().position};
    };
    const auto press = [&](int code) {
        forms::KeyEvent event{code};
        form.picPage.UserKeyDown(event);
        EXPECT_EQ(event.code, 0) << code;
    };
    form.picPage.UserScroll(0, 0);
    press(forms::key::kDown);
    EXPECT_EQ(place(), (forms::Position{0, 40}));
    press(forms::key::kDown);
    press(forms::key::kUp);
    EXPECT_EQ(place(), (forms::Position{0, 40}));
    press(forms::key::kRight);
    press(forms::key::kRight);
    EXPECT_EQ(place(), (forms::Position{80, 40}));
    press(forms::key::kLeft);
    EXPECT_EQ(place(), (forms::Position{40, 40}));
    press(forms::key::kPageDown);
    EXPECT_EQ(place(), (forms::Position{40, form.picPage.Vertical().visible}));
    press(forms::key::kPageUp);
    EXPECT_EQ(place(), (forms::Position{40, 40}));
    EXPECT_EQ(form.PageNumber(), 1);
    press(forms::key::kEnd);
    EXPECT_EQ(form.PageNumber(), last);
    press(forms::key::kDown);
    press(forms::key::kHome);
    EXPECT_EQ(form.PageNumber(), 1);
    EXPECT_EQ(place().y, 0);
    press(forms::key::kDown);
    press(forms::key::kHome);
    EXPECT_EQ(place(), (forms::Position{40, 0})) << "on the first page, too";
    const int percent = form.View().Percent();
    for (const auto& [smaller, larger] : {std::pair{109, 107}, {189, 187}}) {
        press(smaller);
        EXPECT_LT(form.View().Percent(), percent) << smaller;
        press(larger);
        EXPECT_EQ(form.View().Percent(), percent) << larger;
    }
}

TEST_F(Preview, KeysOfTheWindowTurnZoomPrintAndSave) {
    PreviewForm& form = Open(ListOf(200));
    user_.Pick(form.cboZoom, 5);
    const int last = report_->Pages().PageCount();
    ASSERT_GT(last, 3);
    struct Press {
        int code;
        bool control;
        int page;
        int percent;
        const char* done;
    };
    using namespace forms::key;
    const std::vector<Press> presses{
        {kPageDown, false, 3, 100, ""}, {kPageUp, false, 1, 100, ""}, {kHome, true, 1, 100, ""},
        {kEnd, true, last, 100, ""},    {107, true, 2, 125, ""},      {187, true, 2, 125, ""},
        {109, true, 2, 75, ""},         {189, true, 2, 75, ""},       {'P', true, 2, 100, "print "},
        {'S', true, 2, 100, "pdf "},
    };
    const auto play = [&](int code, bool control) {
        user_.Type(form.txtPage, "2");
        user_.Leave(form.txtPage);
        user_.Pick(form.cboZoom, 5);
        done_.clear();
        dialogs_.messages.clear();
        forms::KeyEvent event{code};
        event.control = control;
        form.cmdSetup.UserKeyDown(event);
        if (dialogs_.messages == std::vector<std::string>{"16|in use"}) done_ += "pdf ";
        return event.code;
    };
    for (const Press& press : presses) {
        const int left = play(press.code, press.control);
        EXPECT_EQ(form.PageNumber(), press.page) << press.code;
        EXPECT_EQ(form.View().Percent(), press.percent) << press.code;
        EXPECT_EQ(done_, press.done) << press.code;
        const bool failed = press.code == 'S';
        EXPECT_EQ(left, failed ? press.code : 0) << press.code;
        if (!press.control) continue;
        EXPECT_EQ(play(press.code, false), press.code) << "the control under the focus takes it";
        EXPECT_EQ(form.PageNumber(), 2) << press.code;
        EXPECT_EQ(form.View().Percent(), 100) << press.code;
        EXPECT_EQ(done_, "") << press.code;
    }
}

TEST_F(Preview, EachControlOfTheBarKnowsTheKeysOfTheWindow) {
    PreviewForm& form = Open(ListOf(200));
    int tried = 0;
    for (forms::Control* control : form.Controls()) {
        if (control == &form.picPage || !control->IsTabStop()) continue;
        forms::KeyEvent event{forms::key::kEnd};
        event.control = true;
        control->UserKeyDown(event);
        EXPECT_EQ(form.PageNumber(), report_->Pages().PageCount()) << control->Name();
        tried++;
        user_.Key(form.picPage, forms::key::kHome);
    }
    EXPECT_GT(tried, 5);
}

TEST_F(Preview, ButtonsDoWhatTheySay) {
    PreviewForm& form = Open(ListOf(3));
    user_.Click(form.cmdPrint);
    user_.Click(form.cmdCsv);
    EXPECT_EQ(done_, "print csv ");
}

TEST_F(Preview, AnErrorIsReportedAndTheWindowGoesOn) {
    PreviewForm& form = Open(ListOf(3));
    user_.Click(form.cmdPdf);
    EXPECT_EQ(dialogs_.messages, std::vector<std::string>{"16|in use"});
    EXPECT_TRUE(form.IsShown());
}

TEST_F(Preview, EscapeCloses) {
    PreviewForm& form = Open(ListOf(3));
    user_.Key(form.picPage, forms::key::kEscape);
    EXPECT_EQ(windows_.Find("frmPreview"), nullptr);
}

TEST_F(Preview, SpeaksTheJobsScript) {
    Document document = ListOf(3);
    document.language = 1;
    PreviewForm& form = Open(std::move(document));
    EXPECT_EQ(form.cmdNext.Caption(), "下一頁(&N)");
    EXPECT_EQ(form.Caption(), "預覽打印 - 任务列表");
}

}  // namespace
}  // namespace zv::report

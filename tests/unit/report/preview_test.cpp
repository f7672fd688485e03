#include "report/preview/preview_form.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "doubles/queued_dialogs.h"
#include "driver/headless/headless_driver.h"
#include "forms/headless/headless_backend.h"
#include "report_stage.h"

namespace zv::report {
namespace {

class Preview : public testing::Test {
 protected:
    PreviewForm& Open(Document document) {
        document_ = std::move(document);
        layout_ = std::make_unique<Layout>(document_, TestFonts());
        PreviewActions actions;
        actions.print = [this] { done_ += "print "; };
        actions.savePdf = [] { throw RuntimeError(ErrorNumber::PermissionDenied, "in use"); };
        actions.saveCsv = [this] { done_ += "csv "; };
        actions.paint = [this](const forms::CanvasSurface&, const Page& page, double, double,
                               double) { painted_ = TextOf(page); };
        auto& form = windows_.Create<PreviewForm>(*layout_, std::move(actions));
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
    std::unique_ptr<Layout> layout_;
    std::string done_;
    std::string painted_;
};

TEST_F(Preview, TurnsPagesAndStopsAtTheEnds) {
    PreviewForm& form = Open(ListOf(200));
    const int last = layout_->PageCount();
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
    EXPECT_NE(Painted(form).find("第 2 / "), std::string::npos);
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
    EXPECT_EQ(form.PageNumber(), layout_->PageCount());
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
    user_.Pick(form.cboZoom, 4);
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
    user_.Pick(form.cboZoom, 4);
    form.picPage.UserWheel(1, true);
    EXPECT_EQ(form.View().Percent(), 125);
}

TEST_F(Preview, KeysScrollAndTurn) {
    PreviewForm& form = Open(ListOf(200));
    user_.Key(form.picPage, forms::key::kDown);
    EXPECT_GT(form.picPage.Vertical().position, 0);
    user_.Key(form.picPage, 35);
    EXPECT_EQ(form.PageNumber(), layout_->PageCount());
    user_.Key(form.picPage, 36);
    EXPECT_EQ(form.PageNumber(), 1);
    user_.Key(form.cmdPrint, 34);
    EXPECT_EQ(form.PageNumber(), 2);
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
    EXPECT_EQ(form.Caption(), "預覽列印 - 任务列表");
}

}  // namespace
}  // namespace zv::report

// How the windows of the report component lie.
#include "../unit/report/report_stage.h"
#include "report/preview/page_setup_form.h"
#include "report/preview/preview_form.h"
#include "stand.h"

namespace zv::report {
namespace {

using Lines = std::vector<std::string>;

class ReportLayout : public contract::Contract, public testing::WithParamInterface<int> {
 protected:
    PreviewForm& Open(Document document) {
        document_ = std::move(document);
        document_.language = static_cast<std::int16_t>(GetParam());
        report_ = std::make_unique<Arrangement>(document_, TestFonts(), setup_);
        PreviewActions actions;
        actions.keepSetup = [](const PageSetup&) {};
        actions.paint = [](const forms::CanvasSurface&, const Page&, double, double, double) {};
        auto& form = windows_.Create<PreviewForm>(*report_, std::move(actions));
        form.Show(false);
        return form;
    }
    Lines Faults(forms::Form& form) { return driver().ReadFaults(form); }

    Document document_;
    PageSetup setup_;
    std::unique_ptr<Arrangement> report_;
};

TEST_P(ReportLayout, OfThePreview) {
    PreviewForm& form = Open(ListOf(2000));
    EXPECT_EQ(Faults(form), Lines{});
    driver().Resize(form, form.MinimumClientSize());
    EXPECT_EQ(Faults(form), Lines{});
    driver().Resize(form, {300, 200});
    EXPECT_EQ(Faults(form), Lines{}) << "scrolling";
    driver().Resize(form, {1100, 760});
    EXPECT_EQ(Faults(form), Lines{});
    driver().Close(form);
    EXPECT_EQ(Faults(Open(ItemOf({{"TaskTitle", "主题", ""}}))), Lines{});
}

TEST_P(ReportLayout, OfThePageSetup) {
    PreviewForm& form = Open(ListOf(3));
    Lines faults{"the window did not open"};
    stand_->SetModalLoop([&](forms::Form& modal) {
        faults = Faults(dynamic_cast<PageSetupForm&>(modal));
        driver().Close(modal);
    });
    driver().Click(form.cmdSetup);
    EXPECT_EQ(faults, Lines{});
}

INSTANTIATE_TEST_SUITE_P(InEachScript, ReportLayout, testing::Values(0, 1));

}  // namespace
}  // namespace zv::report

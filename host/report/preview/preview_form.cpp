#include "report/preview/preview_form.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/text.h"
#include "report/report_texts.h"

namespace zv::report {
namespace {

constexpr int kBarMargin = 8;
constexpr int kButtonGap = 4;
constexpr int kGroupGap = 14;
constexpr int kBarHeight = 26;
constexpr int kButtonPadding = 18;
constexpr forms::Size kFirstSize{980, 720};
constexpr int kLeastHeight = 320;
constexpr int kWheelStep = 72;
constexpr int kLineStep = 40;
constexpr std::array kPercents{50, 75, 100, 125, 150, 200, 400};
constexpr double kInch = 96;

namespace code {
constexpr int kAdd = 107;
constexpr int kSubtract = 109;
constexpr int kPlus = 187;
constexpr int kMinus = 189;
}  // namespace code

}  // namespace

PreviewForm::PreviewForm(forms::WindowSystem& windows, const Layout& layout, PreviewActions actions)
    : Form(windows, "frmPreview"), layout_(layout), actions_(std::move(actions)) {
    ConnectEvents();
}

void PreviewForm::ConnectEvents() {
    cmdFirst.onClick = [this] { GoTo(1); };
    cmdPrevious.onClick = [this] { GoTo(page_ - 1); };
    cmdNext.onClick = [this] { GoTo(page_ + 1); };
    cmdLast.onClick = [this] { GoTo(layout_.PageCount()); };
    txtPage.onLostFocus = [this] { txtPage_Apply(); };
    txtPage.onGotFocus = [this] { txtPage.SelectAll(); };
    cboZoom.onClick = [this] { cboZoom_Click(); };
    cmdZoomOut.onClick = [this] { Zoom(view_.Step(-1)); };
    cmdZoomIn.onClick = [this] { Zoom(view_.Step(+1)); };
    cmdPrint.onClick = [this] { actions_.print(); };
    cmdPdf.onClick = [this] { actions_.savePdf(); };
    cmdCsv.onClick = [this] { actions_.saveCsv(); };
    cmdClose.onClick = [this] { Unload(); };
    cancelButton = &cmdClose;
    picPage.onPaint = [this](const forms::CanvasSurface& surface) { picPage_Paint(surface); };
    picPage.onWheel = [this](int notches, bool control) {
        control ? Zoom(view_.Step(notches)) : Move(-notches * kWheelStep);
    };
    for (forms::Control* control : Controls()) {
        control->onKeyDown = [this](forms::KeyEvent& event) { AnyKey(event); };
    }
    picPage.onKeyDown = [this](forms::KeyEvent& event) { picPage_KeyDown(event); };
    txtPage.onKeyDown = [this](forms::KeyEvent& event) {
        AnyKey(event);
        if (event.code != forms::key::kEnter) return;
        txtPage_Apply();
        txtPage.SelectAll();
        event.code = 0;
    };
}

void PreviewForm::Form_Load() {
    SetCaptions();
    SetSizable(true);
    txtPage.SetNumericKeyboard(true);
    txtPage.SetMaxLength(6);
    picPage.SetAccessibleName(GetReportText(ReportText::PageArea, layout_.Source().language));
    PlaceToolbar();
    const forms::Rect work = Windows().GetBackend().WorkArea();
    SetClientSize({std::clamp(kFirstSize.width, MinimumClientSize().width,
                              std::max(work.width - 40, MinimumClientSize().width)),
                   std::clamp(work.height - 80, kLeastHeight, kFirstSize.height + 120)});
    Center();
    view_.SetPage(layout_.PageWidth(), layout_.PageHeight());
    PlaceCanvas();
    ShowZoom();
    ShowPosition();
}

void PreviewForm::Form_Activate() {
    // The keys belong to the page until the user goes elsewhere.
    if (!std::exchange(wasActive_, true)) picPage.SetFocus();
}

void PreviewForm::SetCaptions() {
    const std::int16_t language = layout_.Source().language;
    const auto text = [&](ReportText id) { return GetReportText(id, language); };
    SetCaption(FormatReportText(ReportText::Preview, language, layout_.Source().title));
    cmdFirst.SetCaption(text(ReportText::FirstPage));
    cmdPrevious.SetCaption(text(ReportText::PreviousPage));
    cmdNext.SetCaption(text(ReportText::NextPage));
    cmdLast.SetCaption(text(ReportText::LastPage));
    txtPage.SetAccessibleName(text(ReportText::PageNumber));
    lblPages.SetCaption(
        FormatReportText(ReportText::OfPages, language, std::to_string(layout_.PageCount())));
    cmdZoomOut.SetCaption("&-");
    cmdZoomOut.SetAccessibleName(text(ReportText::ZoomOut));
    cmdZoomIn.SetCaption("&+");
    cmdZoomIn.SetAccessibleName(text(ReportText::ZoomIn));
    cboZoom.SetAccessibleName(text(ReportText::Zoom));
    std::vector<std::string> zooms{text(ReportText::FitWidth), text(ReportText::WholePage)};
    for (const int percent : kPercents) zooms.push_back(std::to_string(percent) + "%");
    cboZoom.SetItems(std::move(zooms));
    cmdPrint.SetCaption(text(ReportText::Print));
    cmdPdf.SetCaption(text(ReportText::SavePdf));
    cmdCsv.SetCaption(text(ReportText::SaveCsv));
    cmdClose.SetCaption(text(ReportText::Close));
}

void PreviewForm::PlaceToolbar() {
    forms::Backend& backend = Windows().GetBackend();
    int x = kBarMargin;
    const auto place = [&](forms::Control& control, int width) {
        control.Move({x, kBarMargin, width, kBarHeight});
        x += width + kButtonGap;
    };
    const auto button = [&](forms::CommandButton& command) {
        const std::string caption = text::Replace(command.Caption(), "&", "");
        place(command, backend.MeasureText(caption).width + kButtonPadding);
    };
    const auto group = [&] { x += kGroupGap - kButtonGap; };
    button(cmdFirst);
    button(cmdPrevious);
    place(txtPage, 48);
    const int labelWidth = backend.MeasureText(lblPages.Caption()).width + 8;
    lblPages.Move({x, kBarMargin + 5, labelWidth, kBarHeight - 6});
    x += labelWidth + kButtonGap;
    button(cmdNext);
    button(cmdLast);
    group();
    place(cmdZoomOut, kBarHeight);
    place(cboZoom, 76);
    place(cmdZoomIn, kBarHeight);
    group();
    button(cmdPrint);
    button(cmdPdf);
    button(cmdCsv);
    group();
    button(cmdClose);
    SetMinimumClientSize({x - kButtonGap + kBarMargin, kLeastHeight});
}

void PreviewForm::PlaceCanvas() {
    constexpr int kTop = kBarMargin + kBarHeight + kBarMargin;
    picPage.Move(
        {0, kTop, std::max(0, ClientSize().width), std::max(0, ClientSize().height - kTop)});
    view_.SetArea(picPage.ViewSize());
    ApplyZoom();
}

void PreviewForm::Form_Resize() {
    PlaceCanvas();
}

void PreviewForm::GoTo(int page, bool atEnd) {
    const int target = std::clamp(page, 1, layout_.PageCount());
    const bool turned = target != page_;
    page_ = target;
    if (turned) {
        const forms::Canvas::Scroll vertical = view_.Vertical(0);
        picPage.SetScroll(view_.Horizontal(picPage.Horizontal().position),
                          view_.Vertical(atEnd ? vertical.Last() : 0));
    }
    ShowPosition();
    picPage.Repaint();
}

void PreviewForm::txtPage_Apply() {
    const std::string_view text = text::Trim(txtPage.Text());
    int page = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), page);
    if (error == std::errc::result_out_of_range) {
        page = layout_.PageCount();
    } else if (error != std::errc() || end != text.data() + text.size()) {
        page = page_;
    }
    GoTo(page);
}

void PreviewForm::ShowPosition() {
    txtPage.SetText(std::to_string(page_));
    const bool hasEarlier = page_ > 1;
    const bool hasLater = page_ < layout_.PageCount();
    cmdFirst.SetEnabled(hasEarlier);
    cmdPrevious.SetEnabled(hasEarlier);
    cmdNext.SetEnabled(hasLater);
    cmdLast.SetEnabled(hasLater);
    txtPage.SetEnabled(layout_.PageCount() > 1);
}

void PreviewForm::cboZoom_Click() {
    if (settingZoom_) return;
    const int choice = cboZoom.ListIndex();
    if (choice < 0) return;
    if (choice == 0) {
        view_.SetZoom(ZoomMode::FitWidth, 100);
    } else if (choice == 1) {
        view_.SetZoom(ZoomMode::WholePage, 100);
    } else {
        view_.SetZoom(ZoomMode::Percent, kPercents[static_cast<std::size_t>(choice - 2)]);
    }
    ApplyZoom();
}

void PreviewForm::Zoom(int percent) {
    view_.SetZoom(ZoomMode::Percent, percent);
    ApplyZoom();
    ShowZoom();
}

void PreviewForm::ApplyZoom() {
    picPage.SetScroll(view_.Horizontal(picPage.Horizontal().position),
                      view_.Vertical(picPage.Vertical().position));
    cmdZoomOut.SetEnabled(view_.Percent() > PageView::kSmallest);
    cmdZoomIn.SetEnabled(view_.Percent() < PageView::kLargest);
    picPage.Repaint();
}

void PreviewForm::ShowZoom() {
    settingZoom_ = true;
    int choice = -1;
    if (view_.Mode() == ZoomMode::FitWidth) choice = 0;
    if (view_.Mode() == ZoomMode::WholePage) choice = 1;
    if (view_.Mode() == ZoomMode::Percent) {
        const auto at = std::find(kPercents.begin(), kPercents.end(), view_.Percent());
        if (at != kPercents.end()) choice = static_cast<int>(at - kPercents.begin()) + 2;
    }
    cboZoom.SetListIndex(choice);
    settingZoom_ = false;
}

void PreviewForm::picPage_Paint(const forms::CanvasSurface& surface) {
    if (shownPage_ != page_) {
        shown_ = layout_.MakePage(page_);
        shownPage_ = page_;
    }
    const double pixels = surface.dpi / kInch;
    actions_.paint(surface, shown_, view_.Scale() * pixels,
                   view_.Left(picPage.Horizontal().position) * pixels,
                   view_.Top(picPage.Vertical().position) * pixels);
}

void PreviewForm::Move(int units) {
    const forms::Canvas::Scroll& vertical = picPage.Vertical();
    if (units > 0 && vertical.position >= vertical.Last()) {
        if (page_ < layout_.PageCount()) GoTo(page_ + 1);
    } else if (units < 0 && vertical.position <= 0) {
        if (page_ > 1) GoTo(page_ - 1, true);
    } else {
        picPage.UserScroll(picPage.Horizontal().position, vertical.position + units);
    }
}

void PreviewForm::AnyKey(forms::KeyEvent& event) {
    switch (event.code) {
        case forms::key::kPageDown:
            GoTo(page_ + 1);
            break;
        case forms::key::kPageUp:
            GoTo(page_ - 1);
            break;
        case forms::key::kHome:
            if (!event.control) return;
            GoTo(1);
            break;
        case forms::key::kEnd:
            if (!event.control) return;
            GoTo(layout_.PageCount());
            break;
        case code::kAdd:
        case code::kPlus:
            if (!event.control) return;
            Zoom(view_.Step(+1));
            break;
        case code::kSubtract:
        case code::kMinus:
            if (!event.control) return;
            Zoom(view_.Step(-1));
            break;
        case 'P':
            if (!event.control) return;
            actions_.print();
            break;
        case 'S':
            if (!event.control) return;
            actions_.savePdf();
            break;
        default:
            return;
    }
    event.code = 0;
}

void PreviewForm::picPage_KeyDown(forms::KeyEvent& event) {
    const int x = picPage.Horizontal().position;
    const int y = picPage.Vertical().position;
    const int page = std::max(kLineStep, picPage.Vertical().visible - kLineStep);
    switch (event.code) {
        case forms::key::kDown:
            Move(kLineStep);
            break;
        case forms::key::kUp:
            Move(-kLineStep);
            break;
        case forms::key::kPageDown:
            Move(page);
            break;
        case forms::key::kPageUp:
            Move(-page);
            break;
        case forms::key::kLeft:
            picPage.UserScroll(x - kLineStep, y);
            break;
        case forms::key::kRight:
            picPage.UserScroll(x + kLineStep, y);
            break;
        case forms::key::kHome:
            GoTo(1);
            picPage.UserScroll(x, 0);
            break;
        case forms::key::kEnd:
            GoTo(layout_.PageCount());
            break;
        case code::kAdd:
        case code::kPlus:
            Zoom(view_.Step(+1));
            break;
        case code::kSubtract:
        case code::kMinus:
            Zoom(view_.Step(-1));
            break;
        default:
            AnyKey(event);
            return;
    }
    event.code = 0;
}

}  // namespace zv::report

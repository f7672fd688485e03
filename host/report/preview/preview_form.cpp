#include "report/preview/preview_form.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/text.h"
#include "forms/kept_focus.h"
#include "forms/layout/metrics.h"
#include "report/column_widths.h"
#include "report/preview/page_setup_form.h"
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
constexpr double kInch = 96;
constexpr int kLabelDrop = 5;

// A control of the toolbar.
struct Placed {
    forms::Control* control;
    int width;
    int drop;
};

namespace code {
constexpr int kAdd = 107;
constexpr int kSubtract = 109;
constexpr int kPlus = 187;
constexpr int kMinus = 189;
}  // namespace code

}  // namespace

PreviewForm::PreviewForm(forms::WindowSystem& windows, Arrangement& report, PreviewActions actions)
    : Form(windows, "frmPreview"), report_(report), actions_(std::move(actions)) {
    ConnectEvents();
}

void PreviewForm::ConnectEvents() {
    cmdFirst.onClick = [this] { GoTo(1); };
    cmdPrevious.onClick = [this] { GoTo(page_ - 1); };
    cmdNext.onClick = [this] { GoTo(page_ + 1); };
    cmdLast.onClick = [this] { GoTo(Pages().PageCount()); };
    txtPage.onLostFocus = [this] { txtPage_Apply(); };
    txtPage.onGotFocus = [this] { txtPage.SelectAll(); };
    cboZoom.onClick = [this] { cboZoom_Click(); };
    cmdZoomOut.onClick = [this] { Zoom(view_.Step(-1)); };
    cmdZoomIn.onClick = [this] { Zoom(view_.Step(+1)); };
    cmdPrint.onClick = [this] { actions_.print(); };
    cmdPdf.onClick = [this] { actions_.savePdf(); };
    cmdCsv.onClick = [this] { actions_.saveCsv(); };
    cmdSetup.onClick = [this] { cmdSetup_Click(); };
    chkNoEmpty.onClick = [this] { chkNoEmpty_Click(); };
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
    picPage.SetAccessibleName(GetReportText(ReportText::PageArea, Pages().Source().language));
    chkNoEmpty.SetVisible(Pages().Source().kind == DocumentKind::Table);
    chkNoEmpty.SetValue(Pages().Setup().leavesOutEmpty ? 1 : 0);
    chkNoEmpty.SetEnabled(HasEmptyColumn());
    PlaceToolbar();
    const forms::Rect work = Windows().GetBackend().WorkArea();
    SetClientSize({std::clamp(kFirstSize.width, MinimumClientSize().width,
                              std::max(work.width - 40, MinimumClientSize().width)),
                   std::clamp(work.height - 80, kLeastHeight, kFirstSize.height + 120)});
    Center();
    view_.SetPage(Pages().PageWidth(), Pages().PageHeight());
    PlaceCanvas();
    ShowZoom();
    ShowPosition();
}

void PreviewForm::Form_Activate() {
    // The keys belong to the page until the user goes elsewhere.
    if (!std::exchange(wasActive_, true)) picPage.SetFocus();
}

void PreviewForm::SetCaptions() {
    const std::int16_t language = Pages().Source().language;
    const auto text = [&](ReportText id) { return GetReportText(id, language); };
    SetCaption(FormatReportText(ReportText::Preview, language, Pages().Source().title));
    cmdFirst.SetCaption(text(ReportText::FirstPage));
    cmdPrevious.SetCaption(text(ReportText::PreviousPage));
    cmdNext.SetCaption(text(ReportText::NextPage));
    cmdLast.SetCaption(text(ReportText::LastPage));
    txtPage.SetAccessibleName(text(ReportText::PageNumber));
    cmdZoomOut.SetCaption("&-");
    cmdZoomOut.SetAccessibleName(text(ReportText::ZoomOut));
    cmdZoomIn.SetCaption("&+");
    cmdZoomIn.SetAccessibleName(text(ReportText::ZoomIn));
    cboZoom.SetAccessibleName(text(ReportText::Zoom));
    std::vector<std::string> zooms{text(ReportText::FitWidth), text(ReportText::WholePage)};
    for (const int percent : PageView::kSteps) zooms.push_back(std::to_string(percent) + "%");
    cboZoom.SetItems(std::move(zooms));
    cmdPrint.SetCaption(text(ReportText::Print));
    cmdPdf.SetCaption(text(ReportText::SavePdf));
    cmdCsv.SetCaption(text(ReportText::SaveCsv));
    cmdSetup.SetCaption(text(ReportText::PageSetup));
    chkNoEmpty.SetCaption(text(ReportText::LeaveOutEmpty));
    cmdClose.SetCaption(text(ReportText::Close));
}

void PreviewForm::PlaceToolbar() {
    const forms::layout::Metrics m(Windows().GetBackend());
    const auto button = [&](forms::CommandButton& command) {
        return Placed{&command, m.Width(command.Caption()) + kButtonPadding, 0};
    };
    lblPages.SetCaption(FormatReportText(ReportText::OfPages, Pages().Source().language,
                                         std::to_string(Pages().PageCount())));
    std::vector<std::vector<Placed>> groups{
        {button(cmdFirst),
         button(cmdPrevious),
         {&txtPage, 48, 0},
         {&lblPages, m.Width(lblPages.Caption()) + 8, kLabelDrop},
         button(cmdNext),
         button(cmdLast)},
        {{&cmdZoomOut, kBarHeight, 0}, {&cboZoom, 76, 0}, {&cmdZoomIn, kBarHeight, 0}},
        {button(cmdPrint), button(cmdPdf), button(cmdCsv)},
        {button(cmdSetup)},
        {button(cmdClose)}};
    if (chkNoEmpty.OwnVisible()) {
        groups[3].push_back({&chkNoEmpty, m.BoxWidth(chkNoEmpty.Caption()), 0});
    }
    // A group that has no room beside the others begins the next row.
    int x = kBarMargin;
    int y = kBarMargin;
    int widest = 0;
    for (const std::vector<Placed>& group : groups) {
        int width = -kButtonGap;
        for (const Placed& placed : group) width += placed.width + kButtonGap;
        if (x > kBarMargin && x + width > kFirstSize.width - kBarMargin) {
            x = kBarMargin;
            y += kBarHeight + kButtonGap;
        }
        for (const Placed& placed : group) {
            placed.control->Move({x, y + placed.drop, placed.width, kBarHeight - placed.drop});
            x += placed.width + kButtonGap;
        }
        widest = std::max(widest, x - kButtonGap + kBarMargin);
        x += kGroupGap - kButtonGap;
    }
    barHeight_ = y + kBarHeight + kBarMargin;
    SetMinimumClientSize({widest, kLeastHeight});
}

void PreviewForm::PlaceCanvas() {
    picPage.Move({0, barHeight_, std::max(0, ClientSize().width),
                  std::max(0, ClientSize().height - barHeight_)});
    view_.SetArea(picPage.ViewSize());
    ApplyZoom();
}

void PreviewForm::Form_Resize() {
    PlaceCanvas();
}

void PreviewForm::GoTo(int page, bool atEnd) {
    const int target = std::clamp(page, 1, Pages().PageCount());
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
        page = Pages().PageCount();
    } else if (error != std::errc() || end != text.data() + text.size()) {
        page = page_;
    }
    GoTo(page);
}

void PreviewForm::ShowPosition() {
    txtPage.SetText(std::to_string(page_));
    const bool hasEarlier = page_ > 1;
    const bool hasLater = page_ < Pages().PageCount();
    // Who turns pages goes on doing so.
    forms::SetEnabledOrGoTo(txtPage, Pages().PageCount() > 1, picPage);
    forms::Control& stay = txtPage.Enabled() ? static_cast<forms::Control&>(txtPage) : picPage;
    forms::SetEnabledOrGoTo(cmdFirst, hasEarlier, stay);
    forms::SetEnabledOrGoTo(cmdPrevious, hasEarlier, stay);
    forms::SetEnabledOrGoTo(cmdNext, hasLater, stay);
    forms::SetEnabledOrGoTo(cmdLast, hasLater, stay);
}

void PreviewForm::cmdSetup_Click() {
    AskForPageSetup(Windows(), Pages().Setup(), Pages().Source().language,
                    [this](const PageSetup& setup) {
                        // A host may have closed the preview meanwhile.
                        if (IsLoaded()) SetUp(setup);
                    });
}

void PreviewForm::chkNoEmpty_Click() {
    PageSetup setup = Pages().Setup();
    setup.leavesOutEmpty = chkNoEmpty.Checked();
    SetUp(setup);
}

void PreviewForm::SetUp(const PageSetup& setup) {
    if (setup == Pages().Setup()) return;
    report_.SetUp(setup);
    shownPage_ = 0;
    page_ = std::min(page_, Pages().PageCount());
    view_.SetPage(Pages().PageWidth(), Pages().PageHeight());
    PlaceToolbar();
    PlaceCanvas();
    ShowPosition();
    // Behind all that is shown: what cannot be remembered holds for this window all the same.
    if (actions_.keepSetup) actions_.keepSetup(setup);
}

bool PreviewForm::HasEmptyColumn() const {
    const Table& table = Pages().Source().table;
    for (std::size_t column = 0; column < table.columns.size(); column++) {
        if (IsEmptyColumn(table, column)) return true;
    }
    return false;
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
        view_.SetZoom(ZoomMode::Percent, PageView::kSteps[static_cast<std::size_t>(choice - 2)]);
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
    forms::SetEnabledOrGoTo(cmdZoomOut, view_.Percent() > PageView::kSmallest, cboZoom);
    forms::SetEnabledOrGoTo(cmdZoomIn, view_.Percent() < PageView::kLargest, cboZoom);
    picPage.Repaint();
}

void PreviewForm::ShowZoom() {
    settingZoom_ = true;
    int choice = -1;
    if (view_.Mode() == ZoomMode::FitWidth) choice = 0;
    if (view_.Mode() == ZoomMode::WholePage) choice = 1;
    if (view_.Mode() == ZoomMode::Percent) {
        const auto at =
            std::find(PageView::kSteps.begin(), PageView::kSteps.end(), view_.Percent());
        if (at != PageView::kSteps.end())
            choice = static_cast<int>(at - PageView::kSteps.begin()) + 2;
    }
    cboZoom.SetListIndex(choice);
    settingZoom_ = false;
}

void PreviewForm::picPage_Paint(const forms::CanvasSurface& surface) {
    if (shownPage_ != page_) {
        shown_ = Pages().MakePage(page_);
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
        if (page_ < Pages().PageCount()) GoTo(page_ + 1);
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
            GoTo(Pages().PageCount());
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
            GoTo(Pages().PageCount());
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

// The preview window: pages to turn, zoom, print, save.
#pragma once

#include <functional>

#include "forms/buttons.h"
#include "forms/canvas.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "report/arrangement.h"
#include "report/preview/page_view.h"

namespace zv::report {

/// What the window's buttons do; errors are shown in a box and the window goes on.
struct PreviewActions {
    std::function<void()> print;
    std::function<void()> savePdf;
    std::function<void()> saveCsv;
    /// The user has set up the pages; it is to be remembered.
    std::function<void(const PageSetup& setup)> keepSetup;
    /// Draws a page at a scale (pixels per point) with its corner at (left, top) of a surface.
    std::function<void(const forms::CanvasSurface& surface, const Page& page, double scale,
                       double left, double top)>
        paint;
};

class PreviewForm : public forms::Form {
 public:
    /// The report must outlive the window, which lays it out anew when the user wants that.
    PreviewForm(forms::WindowSystem& windows, Arrangement& report, PreviewActions actions);

    /// From 1.
    int PageNumber() const { return page_; }
    const PageView& View() const { return view_; }

    forms::CommandButton cmdFirst{*this, "cmdFirst"};
    forms::CommandButton cmdPrevious{*this, "cmdPrevious"};
    forms::TextBox txtPage{*this, "txtPage"};
    forms::Label lblPages{*this, "lblPages"};
    forms::CommandButton cmdNext{*this, "cmdNext"};
    forms::CommandButton cmdLast{*this, "cmdLast"};
    forms::CommandButton cmdZoomOut{*this, "cmdZoomOut"};
    forms::ComboBox cboZoom{*this, "cboZoom", nullptr, forms::ComboStyle::ListOnly};
    forms::CommandButton cmdZoomIn{*this, "cmdZoomIn"};
    forms::CommandButton cmdPrint{*this, "cmdPrint"};
    forms::CommandButton cmdPdf{*this, "cmdPdf"};
    forms::CommandButton cmdCsv{*this, "cmdCsv"};
    forms::CommandButton cmdSetup{*this, "cmdSetup"};
    forms::CheckBox chkNoEmpty{*this, "chkNoEmpty"};
    forms::CommandButton cmdClose{*this, "cmdClose"};
    forms::Canvas picPage{*this, "picPage"};

 protected:
    void Form_Load() override;
    void Form_Rescale() override { PlaceToolbar(); }
    void Form_Activate() override;
    void Form_Resize() override;

 private:
    void ConnectEvents();
    void SetCaptions();
    const Layout& Pages() const { return report_.Pages(); }
    void PlaceToolbar();
    void PlaceCanvas();
    void cmdSetup_Click();
    void chkNoEmpty_Click();
    void SetUp(const PageSetup& setup);
    bool HasEmptyColumn() const;
    /// `atEnd`: the foot of the page is shown, as after turning back over its head.
    void GoTo(int page, bool atEnd = false);
    void txtPage_Apply();
    void ShowPosition();
    void cboZoom_Click();
    void Zoom(int percent);
    void ApplyZoom();
    void ShowZoom();
    void picPage_Paint(const forms::CanvasSurface& surface);
    void picPage_KeyDown(forms::KeyEvent& event);
    void AnyKey(forms::KeyEvent& event);
    /// Scrolls down by `units`; at the end of the page to the next one.
    void Move(int units);

    Arrangement& report_;
    PreviewActions actions_;
    PageView view_;
    Page shown_;
    int page_ = 1;
    int shownPage_ = 0;
    int barHeight_ = 0;
    bool settingZoom_ = false;
    bool wasActive_ = false;
};

}  // namespace zv::report

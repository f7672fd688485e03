#include <algorithm>

#include "forms/layout/row.h"
#include "windows/query/ask_window.h"

namespace zv::windows {
namespace {

using forms::layout::Metrics;
using forms::layout::Row;
using forms::layout::dialog::kGap;
using forms::layout::dialog::kMargin;
using forms::layout::dialog::kRowGap;

constexpr int kMark = 26;  ///< of a check box, before its caption

// Three criteria side by side in two rows, each a switch and its input; the inputs of the last
// column take what room the window has.
struct Columns {
    Columns(const frmAsk& w, const Metrics& m) {
        const auto widest = [&](const forms::CheckBox& a, const forms::CheckBox& b) {
            return std::max(m.Width(a.Marked(a.Caption())), m.Width(b.Marked(b.Caption()))) + kMark;
        };
        check1 = widest(w.chkUser, w.Check1[frmAsk::kDateCheck]);
        check2 = widest(w.chkType, w.Check1[frmAsk::kStateCheck]);
        check3 = widest(w.Check1[frmAsk::kTitleCheck], w.chkDoneMan);
        date = m.Width("8888-88-88") + 44;
        until = m.Width(w.lblUntil.Caption()) + 2;
        list = 0;
        for (const forms::ComboBox* box : {&w.cboType2, &w.Combo1}) {
            for (const std::string& item : box->Items()) {
                list = std::max(list, m.Width(item) + 40);
            }
        }
        button = std::max({m.ButtonWidth(w.cmdAsk), m.ButtonWidth(w.cmdPrint),
                           m.ButtonWidth(w.cmdExport), m.ButtonWidth(w.cmdQuit)});
    }
    int FirstInput() const { return 2 * date + until + 2 * kGap; }
    /// Everything but the inputs of the last column.
    int Fixed() const {
        return 2 * kMargin + check1 + FirstInput() + check2 + list + check3 + button + 6 * kGap +
               2 * kGap;
    }

    int check1, check2, check3;
    int date, until, list, button;
};

int HeightFor(const Metrics& m, int rows) {
    return 2 * kMargin + 2 * (m.Field() + kRowGap) + rows * (m.Text() + 4) + kRowGap + m.Button();
}

}  // namespace

void PlaceControls(frmAsk& w) {
    const Metrics m(w.Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const Columns c(w, m);
    const forms::Size client = w.ClientSize();
    const int right = client.width - kMargin;
    const int last = std::max(client.width - c.Fixed(), 40);

    int top = kMargin;
    Row first(m, kMargin, top);
    first.Field(w.chkUser, c.check1);
    first.Field(w.txtUser, c.FirstInput());
    first.Skip(kGap);
    first.Field(w.chkType, c.check2);
    first.Field(w.cboType2, c.list);
    first.Skip(kGap);
    first.Field(w.Check1[frmAsk::kTitleCheck], c.check3);
    first.Field(w.Text1[frmAsk::kTitleCheck], last);

    top += m.Field() + kRowGap;
    Row second(m, kMargin, top);
    second.Field(w.Check1[frmAsk::kDateCheck], c.check1);
    second.Field(w.DTPicker1, c.date);
    second.Label(w.lblUntil, c.until);
    second.Field(w.DTPicker2, c.date);
    second.Skip(kGap);
    second.Field(w.Check1[frmAsk::kStateCheck], c.check2);
    second.Field(w.Combo1, c.list);
    second.Skip(kGap);
    second.Field(w.chkDoneMan, c.check3);
    second.Field(w.txtDoneMan, last);
    w.cmdAsk.Move({right - c.button, top - (m.Button() - m.Field()) / 2, c.button, m.Button()});

    top += m.Field() + kRowGap;
    const int bottom = client.height - kMargin - m.Button();
    w.Grid1.Move(
        {kMargin, top, client.width - 2 * kMargin, std::max(bottom - kRowGap - top, m.Text())});
    int at = right;
    for (forms::CommandButton* button : {&w.cmdQuit, &w.cmdExport, &w.cmdPrint}) {
        at -= c.button;
        button->Move({at, bottom, c.button, m.Button()});
        at -= kGap;
    }
    w.lblCount.Move(
        {kMargin, bottom + (m.Button() - m.Text()) / 2, std::max(at - kMargin, 0), m.Text()});
}

void SetSmallestSize(frmAsk& w) {
    constexpr int kLeastInput = 100;
    constexpr int kLeastRows = 6;
    const Metrics m(w.Windows().GetBackend(), forms::layout::dialog::kSpacing);
    w.SetMinimumClientSize({Columns(w, m).Fixed() + kLeastInput, HeightFor(m, kLeastRows)});
}

void SetWindowSize(frmAsk& w) {
    constexpr int kUsualInput = 280;
    constexpr int kUsualRows = 18;
    const Metrics m(w.Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const Columns c(w, m);
    const forms::Rect area = w.Windows().GetBackend().WorkArea();
    SetSmallestSize(w);
    w.SetClientSize({std::min(c.Fixed() + kUsualInput, std::max(area.width - 40, 400)),
                     std::min(HeightFor(m, kUsualRows), std::max(area.height - 80, 300))});
}

}  // namespace zv::windows

#include <algorithm>

#include "forms/row_layout.h"
#include "windows/query/ask_window.h"

namespace zv::windows {
namespace {

using forms::rows::kGap;
using forms::rows::kMargin;
using forms::rows::kRowGap;
using forms::rows::Measure;
using forms::rows::Row;

constexpr int kMark = 26;  ///< of a check box, before its caption

// Three criteria side by side in two rows, each a switch and its input; the inputs of the last
// column take what room the window has.
struct Columns {
    Columns(const frmAsk& w, const Measure& m) {
        const auto widest = [&](const forms::CheckBox& a, const forms::CheckBox& b) {
            return std::max(m.Width(a.Caption()), m.Width(b.Caption())) + kMark;
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
        button =
            std::max({m.ButtonWidth(w.cmdAsk.Caption()), m.ButtonWidth(w.cmdPrint.Caption()),
                      m.ButtonWidth(w.cmdExport.Caption()), m.ButtonWidth(w.cmdQuit.Caption())});
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

}  // namespace

void PlaceControls(frmAsk& w) {
    const Measure m(w);
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

    top += m.field + kRowGap;
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
    w.cmdAsk.Move({right - c.button, top - (m.button - m.field) / 2, c.button, m.button});

    top += m.field + kRowGap;
    const int bottom = client.height - kMargin - m.button;
    w.Grid1.Move(
        {kMargin, top, client.width - 2 * kMargin, std::max(bottom - kRowGap - top, m.line)});
    int at = right;
    for (forms::CommandButton* button : {&w.cmdQuit, &w.cmdExport, &w.cmdPrint}) {
        at -= c.button;
        button->Move({at, bottom, c.button, m.button});
        at -= kGap;
    }
    w.lblCount.Move({kMargin, bottom + (m.button - m.line) / 2, std::max(at - kMargin, 0), m.line});
}

void SetWindowSize(frmAsk& w) {
    constexpr int kLeastInput = 100;
    constexpr int kUsualInput = 280;
    constexpr int kLeastRows = 6;
    constexpr int kUsualRows = 18;
    const Measure m(w);
    const Columns c(w, m);
    const auto height = [&](int rows) {
        return 2 * kMargin + 2 * (m.field + kRowGap) + rows * (m.line + 4) + kRowGap + m.button;
    };
    const forms::Rect area = w.Windows().GetBackend().WorkArea();
    w.SetMinimumClientSize({c.Fixed() + kLeastInput, height(kLeastRows)});
    w.SetClientSize({std::min(c.Fixed() + kUsualInput, std::max(area.width - 40, 400)),
                     std::min(height(kUsualRows), std::max(area.height - 80, 300))});
}

}  // namespace zv::windows

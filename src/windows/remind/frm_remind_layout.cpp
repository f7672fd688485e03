// Where the parts of the window lie: it grows with what is due to a limit, then the list scrolls.
#include <algorithm>

#include "forms/layout/row.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {
namespace {

using forms::layout::Metrics;
using forms::layout::dialog::kGap;
using forms::layout::dialog::kMargin;
using forms::layout::dialog::kRowGap;

constexpr int kLeastRows = 2;
constexpr int kMostRows = 12;
constexpr int kUsualWidth = 640;

int ChoiceWidth(const forms::ComboBox& choices, const Metrics& m) {
    int width = 0;
    for (const std::string& choice : choices.Items()) width = std::max(width, m.Width(choice));
    return width + 40;
}

int MomentWidth(const Metrics& m) {
    return m.Width("8888-88-88 88:88") + 44;
}

// What lies beside the list, from top to bottom.
int HeightBeside(const Metrics& m) {
    return 2 * kMargin + m.Line() + kRowGap + kRowGap + m.Line() + kRowGap + m.Button() + kRowGap +
           m.Button();
}

int LeastWidth(const frmRemind& w, const Metrics& m) {
    const int acts = m.ButtonWidth(w.cmdDone) + m.ButtonWidth(w.cmdInHand) +
                     m.ButtonWidth(w.cmdOpen) + m.ButtonWidth(w.cmdDismiss) +
                     m.ButtonWidth(w.cmdClose) + 4 * kGap;
    const int later =
        ChoiceWidth(w.cboLater, m) + MomentWidth(m) + m.ButtonWidth(w.cmdLater) + 2 * kGap;
    return 2 * kMargin + std::max(acts, later);
}

}  // namespace

void frmRemind::FitToRows() {
    const Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const int rows = std::clamp(grdDue.DataRowCount(), kLeastRows, kMostRows);
    const int least = LeastWidth(*this, m);
    // The heading of the list takes a row.
    const auto height = [&](int count) { return HeightBeside(m) + (count + 1) * (m.Text() + 6); };
    SetMinimumClientSize({least, height(kLeastRows)});
    SetClientSize({std::max(least, kUsualWidth), height(rows)});
    PlaceControls();
}

void frmRemind::PlaceControls() {
    const Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const forms::Size client = ClientSize();
    const int right = client.width - kMargin;
    const int width = client.width - 2 * kMargin;
    const int acts = client.height - kMargin - m.Button();
    const int later = acts - kRowGap - m.Button();
    const int old = later - kRowGap - m.Line();
    PlaceFirstLine();
    const int list = kMargin + m.Line() + kRowGap;
    grdDue.Move({kMargin, list, width, std::max(old - kRowGap - list, m.Line())});
    lblOld.Move({kMargin, old, width, m.Line()});

    const int drop = (m.Button() - m.Field()) / 2;
    const int choice = ChoiceWidth(cboLater, m);
    cboLater.Move({kMargin, later + drop, choice, m.Field()});
    dtpLater.Move({kMargin + choice + kGap, later + drop, MomentWidth(m), m.Field()});
    cmdLater.Move(
        {kMargin + choice + MomentWidth(m) + 2 * kGap, later, m.ButtonWidth(cmdLater), m.Button()});

    int at = kMargin;
    for (forms::CommandButton* button : {&cmdDone, &cmdInHand, &cmdOpen, &cmdDismiss}) {
        const int wide = m.ButtonWidth(*button);
        button->Move({at, acts, wide, m.Button()});
        at += wide + kGap;
    }
    const int close = m.ButtonWidth(cmdClose);
    cmdClose.Move({right - close, acts, close, m.Button()});
}

void frmRemind::PlaceFirstLine() {
    const Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const forms::Rect line{kMargin, kMargin, ClientSize().width - 2 * kMargin, m.Line()};
    const int left = notice.Place(line);
    lblCount.Move({line.left, line.top, left, line.height});
}

// Where the system shows what comes up by itself: beside the clock.
void frmRemind::MoveToCorner() {
    constexpr int kFromEdge = 12;
    const forms::Rect area = Windows().GetBackend().WorkArea();
    const forms::Rect& bounds = Bounds();
    Move({std::max(area.left, area.Right() - bounds.width - kFromEdge),
          std::max(area.top, area.Bottom() - bounds.height - kFromEdge), bounds.width,
          bounds.height});
}

}  // namespace zv::windows

#include "windows/main/panels/notice_line.h"

#include <algorithm>

#include "forms/layout/metrics.h"

namespace zv::windows {

NoticeLine::NoticeLine(forms::Form& form) : form_(form), lblTakeBack(form, "lblTakeBack") {
    // It holds what somebody typed.
    lblTakeBack.SetUseMnemonic(false);
    lblTakeBack.SetVisible(false);
}

void NoticeLine::Show(const std::string& text) {
    lblTakeBack.SetCaption(text);
    lblTakeBack.SetToolTip(text);
    lblTakeBack.SetVisible(!text.empty());
    Place(line_);
    if (!text.empty()) lblTakeBack.BringToFront();
}

void NoticeLine::Place(const forms::Rect& line) {
    using namespace forms::layout;
    line_ = line;
    const Metrics m(form_.Windows().GetBackend());
    const int width = std::min(line.width, m.Widest({&lblTakeBack}));
    lblTakeBack.Move({line.Right() - width, line.top, width, m.Text()});
}

}  // namespace zv::windows

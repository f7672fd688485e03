#include "windows/notice/notice_line.h"

#include <algorithm>

#include "forms/layout/metrics.h"

namespace zv::windows {

NoticeLine::NoticeLine(forms::Form& form, TakeBack& takeBack)
    : form_(form), takeBack_(takeBack), lblTakeBack(form, "lblTakeBack") {
    // It holds what somebody typed.
    lblTakeBack.SetUseMnemonic(false);
    lblTakeBack.SetVisible(false);
    listener_ = takeBack_.Listen([this](const std::string& text) { Show(text); });
}

void NoticeLine::Show(const std::string& text) {
    lblTakeBack.SetCaption(text);
    lblTakeBack.SetToolTip(text);
    lblTakeBack.SetVisible(!text.empty());
    if (onShown) onShown();
}

int NoticeLine::Place(const forms::Rect& line) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const bool shown = !lblTakeBack.ShownText().empty();
    const int width = shown ? std::min(line.width / 2, m.Widest({&lblTakeBack})) : 0;
    lblTakeBack.Move({line.Right() - width, line.top, width, m.Text()});
    return shown ? line.width - width - kGroupGap : line.width;
}

}  // namespace zv::windows

#include "mainwindow/other_fields.h"

#include <algorithm>

#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {

void OtherFields::Wire() {
    for (int i = 0; i < kOtherFields; i++) {
        window_.txtOther[i].onGotFocus = [this, i] { txtOther_GotFocus(i); };
    }
}

void OtherFields::txtOther_GotFocus(int index) {
    const forms::Rect& box = window_.txtOther[index].Bounds();
    const int visible = window_.picOther.Bounds().height;
    forms::Rect panel = window_.picOtherIn.Bounds();
    // The panel's top is 0 or negative: what lies above the visible part.
    if (box.top + panel.top < 0) {
        panel.top = -box.top;
    } else if (box.Bottom() + panel.top > visible) {
        panel.top = std::max(visible - box.Bottom(), std::min(0, visible - panel.height));
    }
    window_.picOtherIn.Move(panel);
}

}  // namespace zv::mainwindow

// Where the focus goes next.
#include <algorithm>

#include "forms/form.h"

namespace zv::forms {

std::vector<Control*> Form::TabOrder() const {
    std::vector<Control*> order = tabOrder_;
    for (Control* control : controls_) {
        const bool placed =
            std::find(tabOrder_.begin(), tabOrder_.end(), control) != tabOrder_.end();
        if (!placed) order.push_back(control);
    }
    return order;
}

void Form::MoveFocus(int direction) {
    const std::vector<Control*> order = TabOrder();
    const int count = static_cast<int>(order.size());
    if (count == 0) return;
    const auto current = std::find(order.begin(), order.end(), active_);
    int at = current == order.end() ? (direction > 0 ? -1 : count)
                                    : static_cast<int>(current - order.begin());
    for (int step = 0; step < count; step++) {
        at = (at + direction + count) % count;
        Control& candidate = *order[static_cast<std::size_t>(at)];
        if (&candidate != active_ && candidate.CanFocus()) {
            FocusTo(candidate);
            return;
        }
    }
}

void Form::FocusMayBeLost() {
    if (!shown_ || !active_ || active_->CanFocus()) return;
    const std::vector<Control*> order = TabOrder();
    const int count = static_cast<int>(order.size());
    const auto current = std::find(order.begin(), order.end(), active_);
    int at = static_cast<int>(current - order.begin());
    for (int step = 0; step < count; step++) {
        at = (at + 1) % count;
        Control& candidate = *order[static_cast<std::size_t>(at)];
        if (candidate.CanFocus()) {
            SetActive(&candidate);
            return;
        }
    }
    SetActive(nullptr);
}

}  // namespace zv::forms

#include "forms/layout/row.h"

#include <algorithm>

namespace zv::forms::layout {

void Row::Label(forms::Label& label, int width) {
    Put(label, std::max(width, metrics_.Widest({&label})), metrics_.Text(), metrics_.LabelDrop());
}

void Row::Field(Control& control, int width) {
    Put(control, width, metrics_.Field(), 0);
}

void Row::Put(Control& control, int width, int height, int drop) {
    control.Move({at_, top_ + drop, width, height});
    at_ += width + metrics_.Gap();
}

int PlaceFromRight(const Metrics& metrics, int right, int top,
                   std::initializer_list<CommandButton*> buttons) {
    for (CommandButton* button : buttons) {
        const int width = metrics.ButtonWidth(*button);
        button->Move({right - width, top, width, metrics.Button()});
        right -= width + metrics.Gap();
    }
    return right;
}

}  // namespace zv::forms::layout

// Places controls in rows.
#pragma once

#include <initializer_list>

#include "forms/buttons.h"
#include "forms/control.h"
#include "forms/label.h"
#include "forms/layout/metrics.h"

namespace zv::forms::layout {

/// One row of labels and fields, filled from the left to the right.
class Row {
 public:
    /// `metrics` must outlive this.
    Row(const Metrics& metrics, int left, int top) : metrics_(metrics), at_(left), top_(top) {}

    /// As wide as its caption needs, or wider.
    void Label(forms::Label& label, int width = 0);
    void Field(Control& control, int width);
    void Skip(int width) { at_ += width; }

 private:
    void Put(Control& control, int width, int height, int drop);

    const Metrics& metrics_;
    int at_;
    int top_;
};

/// Puts buttons side by side, the first one's right edge at `right`; answers where a further one's
/// would be.
int PlaceFromRight(const Metrics& metrics, int right, int top,
                   std::initializer_list<CommandButton*> buttons);

}  // namespace zv::forms::layout

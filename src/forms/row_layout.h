// Places the controls of a small window in rows, in sizes that follow from the system's font.
#pragma once

#include <algorithm>
#include <string_view>

#include "forms/backend.h"
#include "forms/form.h"
#include "forms/label.h"

namespace zv::forms::rows {

inline constexpr int kMargin = 14;
inline constexpr int kGap = 8;
inline constexpr int kRowGap = 10;

struct Measure {
    explicit Measure(const Form& window) : backend(window.Windows().GetBackend()) {
        line = backend.MeasureText("国Ag").height;
        field = line + 8;
        button = line + 12;
        number = Width("88888") + 14;
    }
    int Width(std::string_view text) const { return backend.MeasureText(text).width; }
    int ButtonWidth(std::string_view caption) const { return std::max(84, Width(caption) + 28); }

    Backend& backend;
    int line = 0;    ///< height of a text
    int field = 0;   ///< height of a field
    int button = 0;  ///< height of a button
    int number = 0;  ///< width of a field for a small number
};

/// One row, filled from the left to the right.
class Row {
 public:
    Row(const Measure& measure, int left, int top) : measure_(measure), at_(left), top_(top) {}

    void Label(forms::Label& label, int width = 0) {
        width = std::max(width, measure_.Width(label.Caption()) + 2);
        Put(label, width, measure_.line, (measure_.field - measure_.line) / 2);
    }
    void Field(Control& control, int width) { Put(control, width, measure_.field, 0); }
    void Skip(int width) { at_ += width; }
    int At() const { return at_; }

 private:
    void Put(Control& control, int width, int height, int offset) {
        control.Move({at_, top_ + offset, width, height});
        at_ += width + kGap;
    }

    const Measure& measure_;
    int at_;
    int top_;
};

}  // namespace zv::forms::rows

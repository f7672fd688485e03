// The line that says what can be taken back.
#pragma once

#include <string>

#include "forms/form.h"
#include "forms/label.h"

namespace zv::windows {

class NoticeLine {
 public:
    /// The form must outlive this.
    explicit NoticeLine(forms::Form& form);

    /// An empty text shows nothing.
    void Show(const std::string& text);
    /// At the right end of a line that holds something else at its left.
    void Place(const forms::Rect& line);

 private:
    forms::Form& form_;
    forms::Rect line_;

 public:
    forms::Label lblTakeBack;
};

}  // namespace zv::windows

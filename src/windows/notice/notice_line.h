// The line that says what can be taken back.
#pragma once

#include <functional>
#include <string>

#include "forms/form.h"
#include "forms/label.h"
#include "session/take_back.h"

namespace zv::windows {

class NoticeLine {
 public:
    /// Both must outlive this.
    NoticeLine(forms::Form& form, TakeBack& takeBack);
    ~NoticeLine() { takeBack_.Unlisten(listener_); }
    NoticeLine(const NoticeLine&) = delete;
    NoticeLine& operator=(const NoticeLine&) = delete;

    /// It has become wider or narrower: Place is to be called again.
    std::function<void()> onShown;
    /// At the right end of a line that holds something else at its left: it takes no more than half
    /// of the line. Answers how much is left of it.
    int Place(const forms::Rect& line);

 private:
    /// An empty text shows nothing.
    void Show(const std::string& text);

    forms::Form& form_;
    TakeBack& takeBack_;
    int listener_ = 0;

 public:
    forms::Label lblTakeBack;
};

}  // namespace zv::windows

// What a window shows of a content that may be larger than it, and where windows may lie.
#pragma once

#include "forms/geometry.h"

namespace zv::forms {

class Viewport {
 public:
    /// `inside` is the room inside the frame, scroll bars included; the content is laid out at
    /// least in the size `least`, and fills the room where that is larger. `bar` is the thickness
    /// of a scroll bar.
    void Set(Size inside, Size least, int bar);

    Size Inside() const { return inside_; }
    /// The room between the bars.
    Size View() const { return view_; }
    Size Content() const { return content_; }
    bool HasHorizontalBar() const { return content_.width > view_.width; }
    bool HasVerticalBar() const { return content_.height > view_.height; }

    /// The point of the content that lies in the corner of the view.
    Position Offset() const { return offset_; }
    /// Never past an end of the content. True when the content moves.
    bool ScrollTo(Position offset);
    /// Scrolls as little as brings the place into view; one that is larger than the view shows its
    /// beginning. True when the content moves.
    bool Reveal(const Rect& place);

    enum class Axis { Horizontal, Vertical };
    /// What a scroll bar is asked for, or the keys of one.
    enum class Step { LineBack, LineOn, PageBack, PageOn, Start, End };
    /// The offset after the step. A page is what the view shows.
    Position After(Axis axis, Step step) const;
    /// The offset after the wheel turned by so many parts of a notch, `kNotch` being a whole one:
    /// towards the end of the row to the right, away from the user towards the top.
    Position AfterWheel(Axis axis, int turned) const;
    static constexpr int kNotch = 120;

 private:
    Size inside_;
    Size view_;
    Size content_;
    Position offset_;
};

/// The place moved into the area, and cut to it where it is larger.
Rect FitInto(const Rect& place, const Rect& area);

}  // namespace zv::forms

// Sizes and distances of a window's layout, in units of 1/96 inch. What holds text follows from
// the system's font.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "forms/backend.h"
#include "forms/buttons.h"
#include "forms/control.h"
#include "forms/label.h"

namespace zv::forms::layout {

inline constexpr int kMargin = 8;
inline constexpr int kGap = 6;
inline constexpr int kGroupGap = 18;
inline constexpr int kLabelGap = 6;
inline constexpr int kColumnGap = 14;
inline constexpr int kFramePadding = 12;
/// The box of a check or option button and its distance from the text.
inline constexpr int kBoxWidth = 24;
inline constexpr int kDropButton = 24;

/// How far apart things stand.
struct Spacing {
    int gap;            ///< between neighbours in a row
    int boxPadding;     ///< of a box, beside the text it is meant for
    int buttonWidth;    ///< at least
    int buttonPadding;  ///< of a button, beside its caption
};
/// In the panels of a window that shows much.
inline constexpr Spacing kPanel{kGap, 2 * kGap, 74, 22};

/// In dialogs.
namespace dialog {
inline constexpr int kMargin = 14;
inline constexpr int kGap = 8;
inline constexpr int kRowGap = 10;
inline constexpr Spacing kSpacing{kGap, 14, 84, 28};
}  // namespace dialog

class Metrics {
 public:
    explicit Metrics(Backend& backend, const Spacing& spacing = kPanel);

    /// Of a caption as it is shown: the sign of an access key takes no place.
    int Width(std::string_view caption) const;
    int Text() const { return text_; }      ///< height of a line
    int Line() const { return text_ + 2; }  ///< of a list, and of a label by itself
    int Field() const { return std::max(23, text_ + 8); }
    int Row() const { return Field() + kGap; }
    int Button() const { return std::max(28, text_ + 12); }
    int FrameTop() const { return text_ + kGap; }
    int Gap() const { return spacing_.gap; }
    int Number() const { return Width("00000") + spacing_.boxPadding; }
    int ButtonWidth(std::string_view caption) const {
        return std::max(spacing_.buttonWidth, Width(caption) + spacing_.buttonPadding);
    }
    int ButtonWidth(const CommandButton& button) const;
    int BoxWidth(std::string_view caption) const { return Width(caption) + kBoxWidth; }
    int ListHeight(int rows) const { return rows * Line() + 6; }
    /// What the widest of them needs.
    int Widest(std::initializer_list<const Label*> labels) const;
    /// The widest of them with the gap behind it.
    int LabelWidth(std::initializer_list<const Label*> labels) const;
    int LabelWidth(const ControlArray<Label>& labels) const;
    /// How far a label stands below the top of the field beside it.
    int LabelDrop() const { return (Field() - Text()) / 2; }

    /// Puts a label and the field behind it into a place `width` wide.
    void PlaceLabelled(Label& label, Control& field, int x, int y, int labelWidth, int width) const;

 private:
    Backend& backend_;
    Spacing spacing_;
    int text_;
};

}  // namespace zv::forms::layout

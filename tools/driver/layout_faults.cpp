#include "driver/layout_faults.h"

#include <algorithm>
#include <cstdlib>

#include "base/text.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "resources/glyph_samples.h"

namespace zv::driver {

using namespace forms;

namespace {

// What native controls take beside their text at least, in 1/96 inch.
constexpr int kButtonBorder = 4;
constexpr int kBox = 18;
constexpr int kFrameLine = 9;
constexpr int kTabEdge = 6;
constexpr int kListEdge = 4;
constexpr int kHeadingEdge = 5;
constexpr int kDropArrow = 20;
constexpr int kDateTick = 18;
constexpr int kFieldBorder = 3;

// The digits of a date are equally wide in every font of a user interface.
constexpr const char* kSomeDate = "2003-12-27";
constexpr const char* kSomeTime = "2003-12-27 23:59";

std::string WithoutMarks(std::string_view caption) {
    std::string shown;
    for (std::size_t i = 0; i < caption.size(); i++) {
        if (caption[i] == '&' && i + 1 < caption.size()) i++;
        shown += caption[i];
    }
    return shown;
}

bool Meet(const Rect& a, const Rect& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

class Inspection {
 public:
    Inspection(const Form& form, const Ruler& ruler) : form_(form), ruler_(ruler) {}

    std::vector<std::string> Run() {
        for (const Control* control : form_.Controls()) {
            if (!IsSeen(*control)) continue;
            CheckPlace(*control);
            CheckNeighbours(*control);
            CheckText(*control);
        }
        return std::move(faults_);
    }

 private:
    static bool IsSeen(const Control& control) {
        return control.Kind() != ControlKind::Timer && control.Visible();
    }
    void Report(const Control& control, const std::string& what) {
        faults_.push_back(form_.Name() + '.' + control.DisplayName() + ' ' + what);
    }
    static std::string Text(const Rect& r) {
        return std::to_string(r.left) + "," + std::to_string(r.top) + " " +
               std::to_string(r.width) + "x" + std::to_string(r.height);
    }

    void CheckPlace(const Control& control) {
        const Rect place = ruler_.PlaceOf(control);
        if (place.width <= 0 || place.height <= 0) {
            Report(control, "has no extent");
            return;
        }
        const Size room =
            control.Parent() ? ruler_.RoomIn(*control.Parent()) : ruler_.ContentOf(form_);
        if (place.left < 0 || place.top < 0 || place.Right() > room.width ||
            place.Bottom() > room.height) {
            Report(control, "lies outside: " + Text(place) + " in " + std::to_string(room.width) +
                                "x" + std::to_string(room.height));
        }
        const Rect& wanted = control.Bounds();
        if (Differ(place.width, wanted.width) || Differ(place.height, wanted.height)) {
            Report(control, "is " + std::to_string(place.width) + "x" +
                                std::to_string(place.height) + " and not as it was laid out");
        }
        const auto* frame = dynamic_cast<const Frame*>(control.Parent());
        if (frame && !frame->Caption().empty() &&
            place.top < ruler_.SizeOf(*frame, frame->Caption()).height) {
            Report(control, "lies on the caption of " + frame->DisplayName());
        }
    }

    // Edges are rounded, not extents.
    bool Differ(int own, int units) const { return std::abs(own - ruler_.Own(units)) > 1; }

    void CheckNeighbours(const Control& control) {
        const Rect place = ruler_.PlaceOf(control);
        for (const Control* other : form_.Controls()) {
            if (other == &control) break;
            if (other->Parent() != control.Parent() || !IsSeen(*other)) continue;
            if (Meet(place, ruler_.PlaceOf(*other))) {
                Report(control, "lies across " + other->DisplayName());
            }
        }
    }

    // `border` in 1/96 inch, of both sides together.
    void Need(const Control& control, const Size& room, std::string_view text, Size border) {
        const Size needed = ruler_.SizeOf(control, text);
        const int width = needed.width + ruler_.Own(border.width);
        const int height = needed.height + ruler_.Own(border.height);
        if (width > room.width) {
            Report(control, "cuts [" + std::string(text) + "] at " + std::to_string(room.width) +
                                " of " + std::to_string(width));
        }
        if (height > room.height) {
            Report(control, "is too low for [" + std::string(text) + "]: " +
                                std::to_string(room.height) + " of " + std::to_string(height));
        }
    }

    void CheckText(const Control& control) {
        const Rect place = ruler_.PlaceOf(control);
        const Size outer{place.width, place.height};
        const auto marked = [&](const std::string& caption) {
            return WithoutMarks(control.Marked(caption));
        };
        switch (control.Kind()) {
            case ControlKind::Label:
                CheckLabel(static_cast<const Label&>(control), outer);
                break;
            case ControlKind::CommandButton:
                Need(control, outer, marked(static_cast<const CommandButton&>(control).Caption()),
                     {2 * kButtonBorder, 2 * kFieldBorder});
                break;
            case ControlKind::CheckBox:
                Need(control, outer, marked(static_cast<const CheckBox&>(control).Caption()),
                     {kBox, 0});
                break;
            case ControlKind::OptionButton:
                Need(control, outer, marked(static_cast<const OptionButton&>(control).Caption()),
                     {kBox, 0});
                break;
            case ControlKind::Frame:
                Need(control, outer, marked(static_cast<const Frame&>(control).Caption()),
                     {2 * kFrameLine, 0});
                break;
            case ControlKind::TabPanel:
                CheckTabs(static_cast<const TabPanel&>(control), outer);
                break;
            case ControlKind::ComboBox:
                CheckCombo(static_cast<const ComboBox&>(control), outer);
                break;
            case ControlKind::DatePicker:
                CheckDate(static_cast<const DatePicker&>(control), outer);
                break;
            case ControlKind::TextBox:
                Need(control, {outer.width, outer.height}, resources::kTallLetters,
                     {0, 2 * kFieldBorder});
                break;
            case ControlKind::Grid:
                CheckHeadings(static_cast<const Grid&>(control));
                break;
            default:
                break;
        }
    }

    void CheckLabel(const Label& label, const Size& outer) {
        const std::string text =
            label.UseMnemonic() ? WithoutMarks(label.Marked(label.Caption())) : label.Caption();
        const bool inTip = !label.UseMnemonic() && !text.empty() &&
                           text::Contains(label.ToolTip(), label.Caption());
        if (!inTip && !text.empty()) Need(label, outer, text, {0, 0});
    }

    void CheckTabs(const TabPanel& tabs, const Size& outer) {
        int width = 0;
        for (int tab = 0; tab < tabs.Tabs(); tab++) {
            width += ruler_.SizeOf(tabs, WithoutMarks(tabs.TabCaption(tab))).width +
                     ruler_.Own(2 * kTabEdge);
        }
        if (width > outer.width) {
            Report(tabs, "has no room for its tabs: " + std::to_string(outer.width) + " of " +
                             std::to_string(width));
        }
    }

    // What a user may type or a database holds can be of any length; a list of the program's own
    // words cannot be typed into.
    void CheckCombo(const ComboBox& combo, const Size& outer) {
        Need(combo, outer, resources::kTallLetters, {kDropArrow, 2 * kFieldBorder});
        if (combo.Style() != ComboStyle::ListOnly) return;
        for (const std::string& item : combo.Items()) {
            // A row may carry its key behind blanks, where nobody is to read it.
            Need(combo, outer, item.substr(0, item.find("  ")), {kDropArrow + 2 * kListEdge, 0});
        }
    }

    void CheckDate(const DatePicker& picker, const Size& outer) {
        // A long date names year, month and day.
        const std::string wide = resources::kWideLetter;
        const std::string text = picker.Format() == DateFormat::Date ? kSomeDate
                                 : picker.Format() == DateFormat::DateTime
                                     ? kSomeTime
                                     : kSomeDate + wide + wide + wide;
        Need(picker, outer, text,
             {kDropArrow + (picker.MayBeEmpty() ? kDateTick : 0), 2 * kFieldBorder});
    }

    void CheckHeadings(const Grid& grid) {
        for (int column = 1; column <= grid.ColumnCount(); column++) {
            const Grid::Column& shown = grid.GetColumn(column);
            if (!shown.visible) continue;
            const int needed =
                ruler_.SizeOf(grid, shown.heading).width + ruler_.Own(2 * kHeadingEdge);
            if (needed > ruler_.Own(shown.width)) {
                Report(grid, "cuts the heading [" + shown.heading + "] at " +
                                 std::to_string(ruler_.Own(shown.width)) + " of " +
                                 std::to_string(needed));
            }
        }
    }

    const Form& form_;
    const Ruler& ruler_;
    std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> LayoutFaults(const Form& form, const Ruler& ruler) {
    return Inspection(form, ruler).Run();
}

Size StateRuler::RoomIn(const Control& control) const {
    return {control.Bounds().width, control.Bounds().height};
}

Size StateRuler::SizeOf(const Control&, std::string_view text) const {
    return backend_.MeasureText(text);
}

}  // namespace zv::driver

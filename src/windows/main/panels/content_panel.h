// The page with an item's content and its free fields, which scroll to the one in use.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/containers.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "session/session.h"
#include "windows/main/panels/field_box.h"

namespace zv::windows {

class ContentPanel {
 public:
    /// All must outlive the panel.
    ContentPanel(forms::Form& form, forms::TabPage page, Session& session);

    void SetCaptions();
    void Place(const forms::Rect& page);
    std::vector<FieldBox> Boxes();
    void SetLocked(bool locked);
    /// Shows the heading of the fields that only items have.
    void ShowFor(bool plans) { lblOthers.SetVisible(!plans); }

    /// Stands over the empty content while nothing is selected; an empty text takes it away.
    void ShowSummary(const std::string& summary);
    /// As forms::Control::Remember, for the boxes.
    std::function<void()> Remember();

    /// Scrolls until the box is wholly visible.
    void txtOther_GotFocus(int index);

 private:
    forms::Form& form_;
    forms::TabPage page_;
    Session& session_;

 public:
    // Order of creation is tab order.
    forms::Label lblContent;
    forms::Label lblOthers;
    forms::TextBox txtTaskCon;
    forms::Label lblSummary;
    forms::Panel picOther;
    forms::Panel picOtherIn;
    forms::ControlArray<forms::Label> lblOther;
    forms::ControlArray<forms::TextBox> txtOther;
};

}  // namespace zv::windows

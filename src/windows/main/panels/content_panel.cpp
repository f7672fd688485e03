#include "windows/main/panels/content_panel.h"

#include <algorithm>

#include "forms/field_keys.h"
#include "forms/layout/metrics.h"
#include "items/fields.h"

namespace zv::windows {
namespace {

using resources::DesignText;

// Elements of the editor's array of labels.
constexpr int kContentLabel = 4;
constexpr int kOthersLabel = 13;

constexpr int kFrame = 2;  ///< of a box

}  // namespace

ContentPanel::ContentPanel(forms::Form& form, forms::TabPage page, Session& session)
    : form_(form),
      page_(page),
      session_(session),
      lblContent(form, "lblList2", &page.Content(), kContentLabel),
      lblOthers(form, "lblList2", &page.Content(), kOthersLabel),
      txtTaskCon(form, "txtTaskCon", &page.Content()),
      lblSummary(form, "lblSummary", &page.Content()),
      picOther(form, "picOther", &page.Content()),
      picOtherIn(form, "picOtherIn", &picOther),
      lblOther(form, "lblOther", &picOtherIn, items::FreeFields()),
      txtOther(form, "txtOther", &picOtherIn, items::FreeFields()) {
    txtTaskCon.SetMultiLine(true);
    // The names of doers stand here as they were typed.
    lblSummary.SetUseMnemonic(false);
    lblSummary.SetVisible(false);
    for (int i = 0; i < txtOther.Count(); i++) {
        txtOther[i].onGotFocus = [this, i] { txtOther_GotFocus(i); };
        txtOther[i].onKeyDown = [this](forms::KeyEvent& event) {
            forms::MoveOnEnter(form_, event);
        };
    }
    for (const FieldBox& entry : Boxes()) {
        static_cast<forms::TextBox*>(entry.box)->SetMaxLength(items::kFields[entry.field].length);
    }
}

void ContentPanel::SetCaptions() {
    lblOthers.SetCaption(session_.LoadText(DesignText::OtherFields));
    page_.SetCaption(session_.LoadText(DesignText::TabItem));
}

std::vector<FieldBox> ContentPanel::Boxes() {
    std::vector<FieldBox> boxes = {{items::field::kContent, &lblContent, &txtTaskCon}};
    int next = 0;
    for (std::size_t field = 0; field < items::kFields.size(); field++) {
        if (items::kFields[field].box != items::kFreeBox) continue;
        boxes.push_back({field, &lblOther[next], &txtOther[next]});
        next++;
    }
    return boxes;
}

void ContentPanel::Place(const forms::Rect& page) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const int inner = page.width - 2 * kMargin;
    const int rowsHeight = (txtOther.Count() + 1) / 2 * m.Row();
    int y = kMargin;
    lblContent.Move({kMargin, y, inner, m.Text()});
    y += m.Text() + 2;
    // Where the page is too low for all, the free fields scroll.
    const int shared = page.height - y - m.Text() - 3 * kGap;
    const int otherHeight = std::clamp(shared - 2 * m.Row(), m.Row(), rowsHeight);
    const int contentHeight = std::max(m.Field(), shared - otherHeight);
    txtTaskCon.Move({kMargin, y, inner, contentHeight});
    lblSummary.Move({kMargin + kFrame, y + kFrame, inner - 2 * kFrame, contentHeight - 2 * kFrame});
    y += contentHeight + kGap;
    lblOthers.Move({kMargin, y, inner, m.Text()});
    y += m.Text() + kGap;
    picOther.Move({kMargin, y, inner, otherHeight});
    picOtherIn.Move({0, 0, inner, rowsHeight});
    const int labelWidth = m.LabelWidth(lblOther);
    const int column = (inner - kColumnGap) / 2;
    for (int i = 0; i < txtOther.Count(); i++) {
        m.PlaceLabelled(lblOther[i], txtOther[i], (i % 2) * (column + kColumnGap), i / 2 * m.Row(),
                        labelWidth, column);
    }
}

void ContentPanel::SetLocked(bool locked) {
    txtTaskCon.SetLocked(locked);
    for (int i = 0; i < txtOther.Count(); i++) txtOther[i].SetLocked(locked);
}

void ContentPanel::ShowSummary(const std::string& summary) {
    lblSummary.SetCaption(summary);
    const bool shown = !summary.empty();
    if (shown && !lblSummary.InFront()) lblSummary.BringToFront();
    lblSummary.SetVisible(shown);
}

std::function<void()> ContentPanel::Remember() {
    std::vector<forms::Control*> boxes{&txtTaskCon};
    for (int i = 0; i < txtOther.Count(); i++) boxes.push_back(&txtOther[i]);
    return forms::RememberAll(boxes);
}

void ContentPanel::txtOther_GotFocus(int index) {
    const forms::Rect& box = txtOther[index].Bounds();
    const int visible = picOther.Bounds().height;
    forms::Rect panel = picOtherIn.Bounds();
    // The panel's top is 0 or negative: what lies above the visible part.
    if (box.top + panel.top < 0) {
        panel.top = -box.top;
    } else if (box.Bottom() + panel.top > visible) {
        panel.top = std::max(visible - box.Bottom(), std::min(0, visible - panel.height));
    }
    picOtherIn.Move(panel);
}

}  // namespace zv::windows

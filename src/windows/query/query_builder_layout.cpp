// Where the controls of the query builder stand.
#include <algorithm>

#include "forms/row_layout.h"
#include "windows/query/query_builder.h"

namespace zv::windows {
namespace {

using forms::rows::kGap;
using forms::rows::kMargin;
using forms::rows::kRowGap;

constexpr int kRows = 9;
constexpr int kOptionMark = 24;

}  // namespace

void frmSeek::PlaceControls() {
    const forms::rows::Measure m(*this);
    int fieldWidth = 0;
    for (const items::ListField& field : fields_) {
        fieldWidth = std::max(fieldWidth, m.Width(field.caption));
    }
    fieldWidth = std::clamp(fieldWidth + 40, 130, 240);
    const int compareWidth = m.Width(Text(resources::ReportText::GreaterOrEqual)) + 50;
    const int valueWidth = std::max(220, m.Width("2003-03-07") + 60);
    const int width =
        std::max(fieldWidth + compareWidth + valueWidth + 2 * kGap, m.Width(lblHint.Caption()) + 4);

    // A column for each part of a condition, its label above it.
    int top = kMargin;
    int left = kMargin;
    const auto column = [&](forms::Label& label, int columnWidth,
                            std::initializer_list<forms::Control*> fields) {
        label.Move({left, top, columnWidth, m.line + 2});
        for (forms::Control* field : fields) {
            field->Move({left, top + m.line + 4, columnWidth, m.field});
        }
        left += columnWidth + kGap;
    };
    column(lblField, fieldWidth, {&cboField});
    column(lblCompare, compareWidth, {&cboCompare});
    column(lblValue, kMargin + width - left, {&txtValue, &DTPicker1, &cboValue});
    top += m.line + 4 + m.field + kRowGap;

    const int addWidth = m.ButtonWidth(cmdAdd.Caption());
    const int andWidth = m.Width(optAnd.Caption()) + kOptionMark;
    const int orWidth = m.Width(optOr.Caption()) + kOptionMark;
    picJoin.Move({kMargin, top, andWidth + kGap + orWidth, m.button});
    optAnd.Move({0, (m.button - m.field) / 2, andWidth, m.field});
    optOr.Move({andWidth + kGap, (m.button - m.field) / 2, orWidth, m.field});
    cmdAdd.Move({kMargin + width - addWidth, top, addWidth, m.button});
    top += m.button + kRowGap;

    lblConditions.Move({kMargin, top, width, m.line + 2});
    top += m.line + 4;
    lstConditions.Move({kMargin, top, width, kRows * (m.line + 2) + 6});
    top = lstConditions.Bounds().Bottom() + 4;
    lblHint.Move({kMargin, top, width, m.line + 2});
    top += m.line + kRowGap + 4;

    left = kMargin;
    for (forms::CommandButton* button : {&cmdRemove, &cmdClear}) {
        button->Move({left, top, m.ButtonWidth(button->Caption()), m.button});
        left = button->Bounds().Right() + kGap;
    }
    int right = kMargin + width;
    for (forms::CommandButton* button : {&cmdCancel, &cmdOK}) {
        const int buttonWidth = m.ButtonWidth(button->Caption());
        button->Move({right - buttonWidth, top, buttonWidth, m.button});
        right -= buttonWidth + kGap;
    }
    SetClientSize({width + 2 * kMargin, top + m.button + kMargin});
}

}  // namespace zv::windows

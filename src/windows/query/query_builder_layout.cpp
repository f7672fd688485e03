// Where the controls of the query builder stand.
#include <algorithm>

#include "forms/layout/row.h"
#include "windows/query/query_builder.h"

namespace zv::windows {
namespace {

using forms::layout::dialog::kGap;
using forms::layout::dialog::kMargin;
using forms::layout::dialog::kRowGap;

constexpr int kRows = 9;

}  // namespace

void frmSeek::PlaceControls() {
    const forms::layout::Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
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
        label.Move({left, top, columnWidth, m.Line()});
        for (forms::Control* field : fields) {
            field->Move({left, top + m.Text() + 4, columnWidth, m.Field()});
        }
        left += columnWidth + kGap;
    };
    column(lblField, fieldWidth, {&cboField});
    column(lblCompare, compareWidth, {&cboCompare});
    column(lblValue, kMargin + width - left, {&txtValue, &DTPicker1, &cboValue});
    top += m.Text() + 4 + m.Field() + kRowGap;

    const int addWidth = m.ButtonWidth(cmdAdd);
    const int andWidth = m.BoxWidth(optAnd.Caption());
    const int orWidth = m.BoxWidth(optOr.Caption());
    picJoin.Move({kMargin, top, andWidth + kGap + orWidth, m.Button()});
    optAnd.Move({0, (m.Button() - m.Field()) / 2, andWidth, m.Field()});
    optOr.Move({andWidth + kGap, (m.Button() - m.Field()) / 2, orWidth, m.Field()});
    cmdAdd.Move({kMargin + width - addWidth, top, addWidth, m.Button()});
    top += m.Button() + kRowGap;

    lblConditions.Move({kMargin, top, width, m.Line()});
    top += m.Text() + 4;
    lstConditions.Move({kMargin, top, width, m.ListHeight(kRows)});
    top = lstConditions.Bounds().Bottom() + 4;
    lblHint.Move({kMargin, top, width, m.Line()});
    top += m.Text() + kRowGap + 4;

    left = kMargin;
    for (forms::CommandButton* button : {&cmdRemove, &cmdClear}) {
        button->Move({left, top, m.ButtonWidth(*button), m.Button()});
        left = button->Bounds().Right() + kGap;
    }
    PlaceFromRight(m, kMargin + width, top, {&cmdCancel, &cmdOK});
    SetClientSize({width + 2 * kMargin, top + m.Button() + kMargin});
}

}  // namespace zv::windows

#include "windows/plan_editor/layout.h"

#include <algorithm>

#include "forms/row_layout.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

using forms::rows::kGap;
using forms::rows::kMargin;
using forms::rows::kRowGap;
using forms::rows::Measure;
using forms::rows::Row;

constexpr int kContentRows = 6;

int FrameTop(const Measure& measure) {
    return measure.line + 6;
}

void PlaceAlert(frmTaskSet& w, const Measure& m) {
    constexpr int kMark = 24;
    Row row(m, kMargin, FrameTop(m));
    for (forms::OptionButton* option : {&w.optEarlyCall, &w.optLastCall, &w.optBothCall}) {
        row.Field(*option, m.Width(option->Caption()) + kMark);
    }
    row.Skip(kGap);
    row.Field(w.txtUpDown, m.number);
    row.Skip(-kGap);
    row.Field(w.UpDown1, 18);
    row.Label(w.lblDays);
}

}  // namespace

void PlaceSchedule(frmTaskSet& w) {
    const Measure m(w);
    int weekWidth = 0;
    for (const std::string& name : w.cobWeek.Items()) {
        weekWidth = std::max(weekWidth, m.Width(name) + 40);
    }
    Row row(m, kMargin, FrameTop(m));
    row.Label(w.lblEvery);
    row.Field(w.txtCircleValue, m.number);
    row.Field(w.cobCircleType, m.Width("国国") + 40);
    if (w.lblDE.OwnVisible()) row.Label(w.lblDE);
    if (w.txtMonth.OwnVisible()) {
        row.Field(w.txtMonth, m.number);
        row.Label(w.lblMonth);
    }
    if (w.txtDay.OwnVisible()) {
        row.Field(w.txtDay, m.number);
        row.Label(w.lblDay);
    }
    if (w.cobWeek.OwnVisible()) row.Field(w.cobWeek, weekWidth);
}

void PlaceControls(frmTaskSet& w) {
    const Measure m(w);
    // Two columns, each a label and a field.
    const auto widest = [&](std::initializer_list<const forms::Label*> labels) {
        int width = 0;
        for (const forms::Label* label : labels) {
            width = std::max(width, m.Width(label->Caption()) + 2);
        }
        return width;
    };
    const int label1 = widest({&w.lblTaskID, &w.lblBegin, &w.lblSetMan});
    const int label2 = widest({&w.lblTaskTitle, &w.lblEnd, &w.lblDoneMan});
    const int date = m.Width("Wednesday, 30 September 2003") + 30;
    const int pick = m.field + 4;
    const int left2 = kMargin + label1 + kGap + date + 2 * kGap;
    const int right = left2 + label2 + kGap + date;
    const int width = right - kMargin;

    int top = kMargin;
    Row first(m, kMargin, top);
    first.Label(w.lblTaskID, label1);
    first.Field(w.txtTaskID, m.Width("8888888888") + 14);
    Row second(m, left2, top);
    second.Label(w.lblTaskTitle, label2);
    second.Field(w.txtTaskTitle, date);

    top += m.field + kRowGap;
    Row begin(m, kMargin, top);
    begin.Label(w.lblBegin, label1);
    begin.Field(w.dateBegin, date);
    Row end(m, left2, top);
    end.Label(w.lblEnd, label2);
    end.Field(w.dateEnd, date);

    const int frame = FrameTop(m) + m.field + kRowGap;
    top += m.field + kRowGap;
    w.fraSchedule.Move({kMargin, top, width, frame});
    PlaceSchedule(w);
    top += frame + kRowGap;
    w.fraAlert.Move({kMargin, top, width, frame});
    PlaceAlert(w, m);

    top += frame + kRowGap;
    Row setter(m, kMargin, top);
    setter.Label(w.lblSetMan, label1);
    setter.Field(w.txtSetMan, date - pick - kGap / 2);
    setter.Skip(-kGap / 2);
    setter.Field(w.cmdSetMan, pick);
    Row executor(m, left2, top);
    executor.Label(w.lblDoneMan, label2);
    executor.Field(w.txtDoneMan, date - pick - kGap / 2);
    executor.Skip(-kGap / 2);
    executor.Field(w.cmdDoneMan, pick);

    top += m.field + kRowGap;
    w.lblTaskCon.Move({kMargin, top, width, m.line});
    top += m.line + 4;
    w.txtTaskCon.Move({kMargin, top, width, kContentRows * m.line + 8});
    top = w.txtTaskCon.Bounds().Bottom() + kRowGap;

    int place = right;
    for (forms::CommandButton* button : {&w.cmdExit, &w.cmdOK, &w.cmdOnlySeeMan}) {
        const int buttonWidth = m.ButtonWidth(button->Caption());
        place -= buttonWidth;
        button->Move({place, top, buttonWidth, m.button});
        place -= kGap;
    }
    const int check = m.Width(w.chkTaskSet.Caption()) + 26;
    w.chkTaskSet.Move({kMargin, top + 2, check, m.field});
    const int afterCheck = kMargin + check + kGap;
    w.lblProgress.Move({afterCheck, top + 6, std::max(place - afterCheck, 0), m.line});
    w.SetClientSize({right + kMargin, top + m.button + kMargin});
}

}  // namespace zv::windows

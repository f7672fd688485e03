#include "windows/plan_editor/layout.h"

#include <algorithm>

#include "forms/layout/row.h"
#include "resources/glyph_samples.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

using forms::layout::Metrics;
using forms::layout::Row;
using forms::layout::dialog::kGap;
using forms::layout::dialog::kMargin;
using forms::layout::dialog::kRowGap;

constexpr int kContentRows = 6;

void PlaceAlert(frmTaskSet& w, const Metrics& m) {
    Row row(m, kMargin, m.FrameTop());
    for (forms::OptionButton* option : {&w.optEarlyCall, &w.optLastCall, &w.optBothCall}) {
        row.Field(*option, m.BoxWidth(option->Marked(option->Caption())));
    }
    row.Skip(kGap);
    row.Field(w.txtUpDown, m.Number());
    row.Skip(-kGap);
    row.Field(w.UpDown1, 18);
    row.Label(w.lblDays);
}

}  // namespace

void PlaceSchedule(frmTaskSet& w) {
    const Metrics m(w.Windows().GetBackend(), forms::layout::dialog::kSpacing);
    int weekWidth = 0;
    for (const std::string& name : w.cobWeek.Items()) {
        weekWidth = std::max(weekWidth, m.Width(name) + 40);
    }
    Row row(m, kMargin, m.FrameTop());
    row.Label(w.lblEvery);
    row.Field(w.txtCircleValue, m.Number());
    row.Field(w.cobCircleType, m.Width(resources::WideLetters(2)) + 40);
    if (w.lblDE.OwnVisible()) row.Label(w.lblDE);
    if (w.txtMonth.OwnVisible()) {
        row.Field(w.txtMonth, m.Number());
        row.Label(w.lblMonth);
    }
    if (w.txtDay.OwnVisible()) {
        row.Field(w.txtDay, m.Number());
        row.Label(w.lblDay);
    }
    if (w.cobWeek.OwnVisible()) row.Field(w.cobWeek, weekWidth);
}

void PlaceControls(frmTaskSet& w) {
    const Metrics m(w.Windows().GetBackend(), forms::layout::dialog::kSpacing);
    // Two columns, each a label and a field.
    const int label1 = m.Widest({&w.lblTaskID, &w.lblBegin, &w.lblSetMan});
    const int label2 = m.Widest({&w.lblTaskTitle, &w.lblEnd, &w.lblDoneMan});
    const int date = m.Width("Wednesday, 30 September 2003") + 30;
    const int pick = m.Field() + 4;
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

    top += m.Field() + kRowGap;
    Row begin(m, kMargin, top);
    begin.Label(w.lblBegin, label1);
    begin.Field(w.dateBegin, date);
    Row end(m, left2, top);
    end.Label(w.lblEnd, label2);
    end.Field(w.dateEnd, date);

    const int frame = m.FrameTop() + m.Field() + kRowGap;
    top += m.Field() + kRowGap;
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

    top += m.Field() + kRowGap;
    w.lblTaskCon.Move({kMargin, top, width, m.Text()});
    top += m.Text() + 4;
    w.txtTaskCon.Move({kMargin, top, width, kContentRows * m.Text() + 8});
    top = w.txtTaskCon.Bounds().Bottom() + kRowGap;

    const int place = PlaceFromRight(m, right, top, {&w.cmdExit, &w.cmdOK, &w.cmdOnlySeeMan});
    const int check = m.BoxWidth(w.chkTaskSet.Marked(w.chkTaskSet.Caption()));
    w.chkTaskSet.Move({kMargin, top + 2, check, m.Field()});
    const int afterCheck = kMargin + check + kGap;
    w.lblProgress.Move({afterCheck, top + 6, std::max(place - afterCheck, 0), m.Text()});
    w.SetClientSize({right + kMargin, top + m.Button() + kMargin});
}

}  // namespace zv::windows

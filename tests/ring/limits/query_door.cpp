// What is typed into the criteria of the query window, against items that hold the value.
#include "doors.h"
#include "values.h"
#include "windows/query/ask_window.h"

namespace zv::ring {
namespace {

using windows::frmAsk;

struct Criterion {
    const char* name;
    forms::CheckBox& box;
    forms::TextBox& text;
};

std::string Found(const frmAsk& ask) {
    std::string rows;
    for (int row = 1; row <= ask.Grid1.DataRowCount(); row++) {
        rows += ask.Grid1.Cell(row, 1);
        rows += ';';
    }
    return rows + ask.lblCount.Caption();
}

}  // namespace

Cells QueryItems(Place& place) {
    Cells cells;
    test::TestApplication& app = place.app;
    place.ShowAllItems();
    app.user.Choose(app.Window()->commands.menus.mnuAsk);
    frmAsk& ask = *app.windows.Find<frmAsk>(frmAsk::kName);
    for (const Criterion& criterion :
         {Criterion{"fUser", ask.chkUser, ask.txtUser},
          Criterion{"taskTitle", ask.Check1[frmAsk::kTitleCheck], ask.Text1[frmAsk::kTitleCheck]},
          Criterion{"tDoneMan", ask.chkDoneMan, ask.txtDoneMan}}) {
        app.user.Click(criterion.box);
        for (const TextValue& value : TextValues(100)) {
            if (!value.canBeTyped) continue;
            place.Hold(1, value.Text());
            const Fate fate = place.Play([&] {
                app.user.Type(criterion.text, value.Text());
                app.user.Click(ask.cmdAsk);
            });
            Cell cell =
                Judge(std::string("queried: ") + criterion.name + " " + value.name, fate, {});
            cell.fate += Found(ask);
            cells.push_back(cell);
            app.user.Type(criterion.text, "");
            place.Restore();
        }
        app.user.Click(criterion.box);
    }
    return cells;
}

}  // namespace zv::ring

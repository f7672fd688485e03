// What is typed into the filter, against items that hold the value.
#include "doors.h"
#include "values.h"
#include "windows/main/frm_task_main.h"

namespace zv::ring {
namespace {

std::string Found(const test::TestApplication& app, const std::string& nodes) {
    return nodes + " " + std::to_string(app.dialogs.messages.size());
}

}  // namespace

Cells SearchItems(Place& place) {
    Cells cells;
    test::TestApplication& app = place.app;
    place.ShowAllItems();
    windows::FilterPanel& filter = app.Window()->filter;
    app.user.SelectTab(app.Window()->SSTab1, windows::kFilterTab);
    struct Box {
        const char* column;
        forms::TextBox* box;
    };
    const std::array<Box, 5> boxes{{{"taskTitle", &filter.txtTitle0},
                                    {"fContent", &filter.txtContent0},
                                    {"tDoneMan", &filter.txtJBR0},
                                    {"fUser", &filter.txtUser0},
                                    {"fGuest", &filter.txtName0}}};
    for (const TextValue& value : TextValues(100)) {
        if (!value.canBeTyped) continue;
        place.Hold(1, value.Text());
        for (const Box& box : boxes) {
            const Fate fate = place.Play([&] {
                app.user.Type(*box.box, value.Text());
                app.user.Click(app.Window()->commands.cmdSeek);
            });
            Cell cell = Judge(std::string("searched: ") + box.column + " " + value.name, fate, {});
            cell.fate += Found(app, app.NodeKeys());
            cells.push_back(cell);
            app.user.Type(*box.box, "");
        }
        place.Restore();
    }
    return cells;
}

}  // namespace zv::ring

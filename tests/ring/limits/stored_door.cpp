// What another program stored in an item that a user then looks at and changes.
#include <cstdint>

#include "doors.h"
#include "items/fields.h"
#include "values.h"
#include "windows/main/frm_task_main.h"

namespace zv::ring {
namespace {

/// The item is listed, shown and given another title; besides, its time to alert becomes the moment
/// of its day, as at every save of a visit, and nothing else changes. `day` empty: nor does that.
Cell ChangeTitle(Place& place, const std::string& column, const std::string& value,
                 const std::string& literal, const std::string& day) {
    place.Run("update tTaskList set " + column + "=" + literal + " where fID=1");
    std::string shown;
    const Fate fate = place.Play([&] {
        place.ShowAllItems();
        windows::frmTaskMain& window = *place.app.Window();
        shown = place.app.NodeKeys();
        place.app.user.ClickNode(window.tree.tvwTask, "Z1");
        shown += '|' + window.content.txtTaskCon.Text();
        place.app.user.Choose(window.commands.menus.mnuGuestChg);
        place.app.user.Type(window.item.txtTitle2, "another");
        place.app.user.Click(window.commands.cmdSave);
    });
    Stored meant{{"tTaskList 1 tasktitle", "=another"},
                 {"tTaskList 1 fuser", "=" + place.app.session.state.UserName}};
    if (!day.empty()) {
        for (const char* time : {"tasktime", "tduring1", "tduring2"}) {
            meant[std::string("tTaskList 1 ") + time] = "=" + day;
        }
    }
    Cell cell = Judge("stored: " + column + " " + value, fate, meant);
    cell.fate += shown;
    place.app.Window()->Unload();
    place.Restore();
    return cell;
}

std::string Quoted(const std::string& text) {
    return '\'' + text + '\'';
}

}  // namespace

Cells FindStored(Place& place) {
    Cells cells;
    const std::string stored = "2003-03-07 00:00:00";
    const auto add = [&](const std::string& column, const std::string& value,
                         const std::string& literal, const std::string& day) {
        cells.push_back(ChangeTitle(place, column, value, literal, day));
    };
    for (const DateTime& day : Dates()) {
        const std::string text = day.IsoDateTime();
        // No picker holds an earlier one, so the save leaves all three as they are.
        const bool isShown = day.Year() >= forms::DatePicker::kFirstYear;
        add("taskTime", text, Quoted(text), isShown ? text : "");
        for (const char* column : {"tDuring1", "tDuring2"}) {
            add(column, text, Quoted(text), stored);
        }
    }
    // An item without a day is given the one that the editor shows.
    add("taskTime", "null", "null", "2003-03-07 09:30:00");
    for (const char* column : {"tDuring1", "tDuring2", "TaskID", "tDone"}) {
        add(column, "null", "null", stored);
    }
    for (const char* column : {"TaskID", "tDone"}) {
        for (const std::int64_t number : WholeNumbers()) {
            // What the narrowest of these columns holds.
            if (number < INT16_MIN || number > INT16_MAX) continue;
            const std::string text = std::to_string(number);
            add(column, text, text, stored);
        }
    }
    for (const items::Field& field : items::kFields) {
        if (field.kind != items::FieldKind::Text || field.column == "taskTitle") continue;
        add(std::string(field.column), "null", "null", stored);
    }
    return cells;
}

}  // namespace zv::ring

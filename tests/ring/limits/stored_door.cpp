// What another program stored in an item that a user then looks at and changes.
#include <cstdint>

#include "doors.h"
#include "items/fields.h"
#include "values.h"
#include "windows/main/frm_task_main.h"

namespace zv::ring {
namespace {

class Reader {
 public:
    explicit Reader(Place& place) : place_(place) {}

    /// The item is listed, shown and given another title; besides, its time to alert becomes the
    /// moment of its day, as at every save of a visit, and nothing else changes.
    Cell ChangeTitle(const std::string& column, const std::string& value,
                     const std::string& literal, const std::string& day) {
        place_.Run("update tTaskList set " + column + "=" + literal + " where fID=1");
        std::string shown;
        const Fate fate = place_.Play([&] {
            place_.ShowAllItems();
            windows::frmTaskMain& window = *place_.app.Window();
            shown = place_.app.NodeKeys();
            place_.app.user.ClickNode(window.tree.tvwTask, "Z1");
            shown += '|' + window.content.txtTaskCon.Text();
            place_.app.user.Choose(window.commands.menus.mnuGuestChg);
            place_.app.user.Type(window.item.txtTitle2, "another");
            place_.app.user.Click(window.commands.cmdSave);
        });
        Stored meant{{"tTaskList 1 tasktitle", "=another"},
                     {"tTaskList 1 fuser", "=" + place_.app.session.state.UserName}};
        if (!day.empty()) {
            for (const char* time : {"tasktime", "tduring1", "tduring2"}) {
                meant[std::string("tTaskList 1 ") + time] = "=" + day;
            }
        }
        Cell cell = Judge("stored: " + column + " " + value, fate, meant);
        cell.fate += shown;
        place_.app.Window()->Unload();
        place_.Restore();
        return cell;
    }

 private:
    Place& place_;
};

std::string Quoted(const std::string& text) {
    return '\'' + text + '\'';
}

}  // namespace

Cells FindStored(Place& place) {
    Cells cells;
    Reader reader(place);
    const std::string stored = "2003-03-07 00:00:00";
    for (const char* column : {"taskTime", "tDuring1", "tDuring2"}) {
        const bool isDay = std::string(column) == "taskTime";
        for (const DateTime& day : Dates()) {
            const std::string text = day.IsoDateTime();
            // No picker holds an earlier one, so the save leaves all three as they are.
            const bool isKept = isDay && day.Year() < forms::DatePicker::kFirstYear;
            cells.push_back(reader.ChangeTitle(column, text, Quoted(text),
                                               isKept  ? ""
                                               : isDay ? text
                                                       : stored));
        }
        // An item without a day is given the one that the editor shows.
        cells.push_back(
            reader.ChangeTitle(column, "null", "null", isDay ? "2003-03-07 09:30:00" : stored));
    }
    for (const char* column : {"TaskID", "tDone"}) {
        for (const std::int64_t number : WholeNumbers()) {
            // What the narrowest of these columns holds.
            if (number < INT16_MIN || number > INT16_MAX) continue;
            const std::string text = std::to_string(number);
            cells.push_back(reader.ChangeTitle(column, text, text, stored));
        }
        cells.push_back(reader.ChangeTitle(column, "null", "null", stored));
    }
    for (const items::Field& field : items::kFields) {
        if (field.kind != items::FieldKind::Text || field.column == "taskTitle") continue;
        cells.push_back(reader.ChangeTitle(std::string(field.column), "null", "null", stored));
    }
    return cells;
}

}  // namespace zv::ring

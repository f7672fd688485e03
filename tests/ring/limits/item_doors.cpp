// What is typed into the editor of items.
#include <algorithm>
#include <map>
#include <optional>

#include "base/text.h"
#include "doors.h"
#include "items/fields.h"
#include "session/text_checks.h"
#include "values.h"
#include "windows/main/frm_task_main.h"

namespace zv::ring {
namespace {

using windows::frmTaskMain;

struct Box {
    const items::Field* field;
    forms::Control* control;
    std::vector<TextValue> values;
};

/// The boxes that take any text, with the values that each meets.
std::vector<Box> TextBoxes(frmTaskMain& window) {
    std::vector<Box> boxes;
    for (const auto* panel : {"item", "content", "cards"}) {
        const std::string name = panel;
        const auto fields = name == "item"      ? window.item.Boxes()
                            : name == "content" ? window.content.Boxes()
                                                : window.cards.Boxes();
        for (const auto& [field, label, control] : fields) {
            const items::Field& known = items::kFields[field];
            if (known.kind != items::FieldKind::Text || known.column == "fUser") continue;
            std::vector<TextValue> values;
            for (TextValue& value : TextValues(static_cast<std::size_t>(known.length))) {
                if (value.canBeTyped) values.push_back(std::move(value));
            }
            boxes.push_back({&known, control, std::move(values)});
        }
    }
    return boxes;
}

/// What the editor is to store of a text: the box takes so many units, the field so many bytes.
std::string Fitted(const test::TestApplication& app, const items::Field& field,
                   const std::string& text) {
    if (field.length == 0) return text;
    const std::string taken = text::Left(text, static_cast<std::size_t>(field.length));
    return field.fitsBytes ? CutToBytes(app.codePage, taken, field.length) : taken;
}

class Editor {
 public:
    explicit Editor(Place& place) : place_(place), app_(place.app) {
        place_.ShowAllItems();
        boxes_ = TextBoxes(Window());
    }

    frmTaskMain& Window() { return *app_.Window(); }

    void Begin(bool adds) {
        if (adds) {
            app_.user.Choose(Window().commands.menus.mnuGuestAdd);
            app_.user.Type(Window().cards.txtCompSeek, "A");
            app_.user.Key(Window().cards.txtCompSeek, forms::key::kEnter);
        } else {
            app_.user.ClickNode(Window().tree.tvwTask, "Z1");
            app_.user.Choose(Window().commands.menus.mnuGuestChg);
        }
    }
    void Save() { app_.user.Click(Window().commands.cmdSave); }
    void CallOff() {
        if (Window().model.Editing()) app_.user.Click(Window().commands.cmdAction[0]);
    }

    /// Each box meets each of its values, in as many saves as there are values: in each of them the
    /// boxes hold different ones.
    Cells Texts(const std::string& door, bool adds) {
        Cells cells;
        std::size_t saves = 0;
        for (const Box& box : boxes_) saves = std::max(saves, box.values.size());
        for (std::size_t save = 0; save < saves; save++) {
            Stored meant = adds ? NewRow() : Row("1");
            std::string names;
            const Fate fate = place_.Play([&] {
                Begin(adds);
                for (std::size_t at = 0; at < boxes_.size(); at++) {
                    const Box& box = boxes_[at];
                    const TextValue& value = box.values[(save + at) % box.values.size()];
                    app_.user.SelectTab(Window().SSTab1, TabOf(*box.field));
                    app_.user.Type(*box.control, value.Text());
                    const std::string column = text::ToLower(box.field->column);
                    meant[Key(adds) + column] = "=" + Fitted(app_, *box.field, value.Text());
                    names += std::string(box.field->column) + " " + value.name + ", ";
                }
                Save();
            });
            Cell cell = Judge(door + ": " + names, fate, meant);
            Count(cells, cell);
            CallOff();
            if (adds) place_.Run("delete from tTaskList where fID>2");
        }
        return cells;
    }

    Cells Days(const std::string& door, bool adds) {
        Cells cells;
        for (const DateTime& day : Dates()) {
            Stored meant = adds ? NewRow() : Row("1");
            for (const char* column : {"tasktime", "tduring1", "tduring2"}) {
                meant[Key(adds) + column] = "=" + store::Value(day).ToText();
            }
            bool offered = false;
            const Fate fate = place_.Play([&] {
                Begin(adds);
                app_.user.Type(Window().item.txtTitle2, "a day");
                app_.user.SetDate(Window().item.DTPicker2, day);
                offered = Window().item.DTPicker2.Value() == day;
                if (offered) Save();
            });
            meant[Key(adds) + "tasktitle"] = "=a day";
            cells.push_back(Judge(door + ": taskTime " + day.IsoDateTime(), fate, meant));
            if (offered != (day.Year() >= forms::DatePicker::kFirstYear)) {
                cells.back().wrong += "the picker takes other days";
            }
            CallOff();
            if (adds) place_.Run("delete from tTaskList where fID>2");
        }
        return cells;
    }

 private:
    static std::string Key(bool adds) { return adds ? "tTaskList new " : "tTaskList 1 "; }
    static int TabOf(const items::Field& field) {
        const bool onCard = field.column == "fGuest" || field.column == "fWay";
        return onCard ? windows::kCardTab : windows::kItemTab;
    }
    /// What an edit writes besides the boxes.
    Stored NewRow() const {
        Stored row;
        for (const std::string_view column : items::kColumns) {
            row["tTaskList new " + text::ToLower(column)] = "=";
        }
        for (const char* column : {"tasktime", "tduring1", "tduring2"}) {
            row[std::string("tTaskList new ") + column] = "=2003-03-07 09:30:00";
        }
        row["tTaskList new ftype"] = "=1";
        row["tTaskList new taskid"] = "=1";
        row["tTaskList new tdone"] = "=0";
        row["tTaskList new fguest"] = "=Smith";
        row["tTaskList new fway"] = "=" + app_.Window()->cards.cboWay.List(0);
        row["tTaskList new fuser"] = "=" + app_.session.state.UserName;
        return row;
    }
    Stored Row(const std::string&) const {
        return {{"tTaskList 1 fuser", "=" + app_.session.state.UserName}};
    }
    /// One save counts for as many cells as it has boxes.
    void Count(Cells& cells, Cell& cell) const {
        for (std::size_t at = 1; at < boxes_.size(); at++) cells.push_back({});
        cells.push_back(std::move(cell));
    }

    Place& place_;
    test::TestApplication& app_;
    std::vector<Box> boxes_;
};

Cells EditItems(Place& place, bool adds) {
    Editor editor(place);
    const std::string door = adds ? "item added" : "item changed";
    Cells cells = editor.Texts(door, adds);
    const Cells days = editor.Days(door, adds);
    cells.insert(cells.end(), days.begin(), days.end());
    return cells;
}

}  // namespace

Cells AddItems(Place& place) {
    return EditItems(place, true);
}
Cells ChangeItems(Place& place) {
    return EditItems(place, false);
}

}  // namespace zv::ring

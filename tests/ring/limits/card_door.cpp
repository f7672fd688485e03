// What is typed into the search for customers, against a card that holds the value.
#include "doors.h"
#include "values.h"
#include "windows/main/frm_task_main.h"

namespace zv::ring {
namespace {

/// What the page of customers shows of the card found.
std::string Found(const windows::CardPanel& cards) {
    std::string found = std::to_string(cards.cboComp2.ListCount());
    for (const forms::TextBox* box : {&cards.txtName2, &cards.txtAdd2, &cards.txtCompSeek}) {
        found += '|' + box->Text();
    }
    return found;
}

}  // namespace

Cells SearchCards(Place& place) {
    Cells cells;
    test::TestApplication& app = place.app;
    place.ShowAllItems();
    windows::CardPanel& cards = app.Window()->cards;
    app.user.SelectTab(app.Window()->SSTab1, windows::kCardTab);
    app.user.Choose(app.Window()->commands.menus.mnuGuestAdd);
    for (const TextValue& value : TextValues(100)) {
        if (!value.canBeTyped) continue;
        // The column of the code takes twenty units everywhere, those of the names more.
        const bool isShort = value.units.size() <= 20;
        place.HoldInCard({"Name", "CompName"}, value.Text());
        if (isShort) place.HoldInCard({"CompCode"}, value.Text());
        const Fate fate = place.Play([&] {
            app.user.Type(cards.txtCompSeek, value.Text());
            app.user.Key(cards.txtCompSeek, forms::key::kEnter);
        });
        Cell cell = Judge("searched: card " + value.name, fate, {});
        cell.fate += Found(cards);
        cells.push_back(cell);
        place.Restore();
    }
    app.user.Click(app.Window()->commands.cmdAction[0]);
    return cells;
}

}  // namespace zv::ring

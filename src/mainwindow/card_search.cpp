#include "mainwindow/card_search.h"

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "session/text_checks.h"
#include "store/sql_text.h"

namespace zv::mainwindow {

void CardSearch::Wire() {
    window_.txtCompSeek.onKeyDown = [this](forms::KeyEvent& event) { txtCompSeek_KeyDown(event); };
}

void CardSearch::txtCompSeek_KeyDown(forms::KeyEvent& event) {
    if (event.code != forms::key::kEnter || window_.txtCompSeek.Text().empty()) return;
    event.code = 0;
    const std::string text = text::ToUpper(window_.txtCompSeek.Text());
    window_.txtCompSeek.SetText(text);
    if (!CheckText(window_.session, text)) {
        window_.txtCompSeek.SelectAll();
        return;
    }
    window_.session.EnsureConnection();
    window_.cards.Search(Filter(text));
    if (window_.cboComp2.ListCount() > 0) {
        window_.cboComp2.SetFocus();
    } else {
        window_.session.windows.ShowMessage("未有符合条件的客户资料！", forms::box::kInformation);
    }
}

std::string CardSearch::Filter(const std::string& text) const {
    const std::string box = window_.cards.BoxClause();
    const std::string exact = "CompCode = '" + text + "'" + box;
    // A count that failed says nothing; the wider filter finds the code as well.
    if (window_.session.database.CountRows("cards", exact) > 0) return exact;
    const std::string pattern = store::MakeLikePattern(text);
    return "(CompCode like '" + pattern + "' or CompName like '" + pattern +
           "') And CompName <> ''" + box;
}

}  // namespace zv::mainwindow

#include "windows/main/acts/advanced_search.h"

#include <string>

#include "items/asked_words.h"
#include "items/comparisons.h"
#include "items/names.h"
#include "resources/fixed_texts.h"
#include "windows/query/ask_window.h"
#include "windows/query/condition_words.h"
#include "windows/query/query_builder.h"

namespace zv::windows {

AdvancedSearch::AdvancedSearch(forms::Form& form, Session& session, const MainModel& model,
                               CommandPanel& commands, const FieldLabels& labels, Listing& listing)
    : form_(form),
      session_(session),
      model_(model),
      commands_(commands),
      labels_(labels),
      listing_(listing) {
    commands_.menus.mnuSeek2.onClick = [this] { mnuSeek2_Click(); };
    commands_.menus.mnuAsk.onClick = [this] { mnuAsk_Click(); };
}

void AdvancedSearch::mnuSeek2_Click() {
    std::string where = windows::AskForConditions(session_, conditions_);
    // The host may have closed everything meanwhile.
    if (where.empty() || !form_.IsLoaded()) return;
    // Meanwhile the host may have shown the window to a user whose search is limited.
    if (!commands_.menus.mnuSeek2.Enabled()) {
        session_.windows.ShowMessage(resources::fixed::kNoRight, forms::box::kExclamation);
        return;
    }
    const std::int16_t language = session_.state.Language;
    items::AskedWords asked(language);
    asked.Add(DescribeConditions(conditions_, language));
    if (model_.startMode == kCardMode) {
        const std::string visits = items::IsOfKind(items::ItemKind::Guest);
        where = where == "1=1" ? visits : where + " And " + visits;
        asked.Add(items::KindNames(language).at(Position(items::ItemKind::Guest)));
    }
    listing_.FillWith(where, asked.Text());
}

void AdvancedSearch::mnuAsk_Click() {
    windows::ShowAsk(session_, session_.windows.ModalForm() != nullptr, labels_.Captions());
}

void AdvancedSearch::ShowCaptions() const {
    auto* ask = session_.windows.Find<windows::frmAsk>(windows::frmAsk::kName);
    if (ask) ask->ShowFieldCaptions(labels_.Captions());
}

}  // namespace zv::windows

#include "windows/main/acts/listing.h"

#include <utility>

#include "forms/form.h"
#include "items/asked_words.h"
#include "plans/plan_store.h"

namespace zv::windows {

Listing::Listing(forms::Form& form, Session& session, MainModel& model, TreePanel& tree,
                 FilterPanel& filter, CommandPanel& commands, ItemView& view, Selection& selection)
    : form_(form),
      session_(session),
      model_(model),
      tree_(tree),
      filter_(filter),
      commands_(commands),
      view_(view),
      selection_(selection) {
    tree_.onSwitch = [this] { chkEvent_Click(); };
    tree_.onOrder = [this] {
        if (!model_.starting) chkEvent_Click();
    };
    filter_.onChanged = [this] { chkEvent_Click(); };
    commands_.cmdSeek.onClick = [this] { cmdSeek_Click(); };
    commands_.menus.mnuSeek1.onClick = [this] { cmdSeek_Click(); };
}

void Listing::chkEvent_Click() {
    if (!puttingBack_) Refill();
}

void Listing::cmdSeek_Click() {
    Refill();
}

bool Listing::Refill() {
    if (!filter_.TextsAreFit()) {
        PutSwitchBack();
        return false;
    }
    try {
        Fill();
    } catch (...) {
        PutSwitchBack();
        throw;
    }
    return true;
}

void Listing::PutSwitchBack() {
    if (!form_.IsLoaded()) return;
    // The switch says what the tree shows.
    SetSwitch(model_.ShowsPlans());
}

void Listing::SetSwitch(bool plans) {
    puttingBack_ = true;
    tree_.Want(plans);
    puttingBack_ = false;
}

void Listing::FillForHost() {
    if (!filter_.UnfitText()) Fill();
}

void Listing::Fill() {
    filter_.FollowTheDay();
    if (tree_.WantsPlans())
        LoadTaskPlanList();
    else {
        bySearch_ = false;
        LoadItemList(filter_.BuildItemFilter(),
                     items::DescribeFilter(filter_.Choice(), session_.state.Language));
    }
    if (!form_.IsLoaded()) return;
    // A box of the fill may have stood while the host changed what the tree shows.
    const bool plans = tree_.WantsPlans();
    model_.currentKind = plans ? NodeKind::Plan : NodeKind::Task;
    filter_.ShowFor(plans);
    view_.ShowFor(plans);
    commands_.cmdTaskOK.SetEnabled(false);
    selection_.UpdatePrint();
    if (onShown) onShown();
}

void Listing::FillFromNewStore() {
    if (session_.windows.UserActs())
        Refill();
    else
        FillForHost();
}

void Listing::FillAgain() {
    const std::string key = tree_.KeyOf(tree_.Selected());
    if (!Refill()) return;
    const int node = tree_.Find(key);
    if (node == TreePanel::kNone) return;
    tree_.Select(node);
    selection_.tvwTask_NodeClick(node);
}

void Listing::FillWith(const std::string& where, const std::string& asked) {
    // A tree that shows plans becomes one of items first, with all that depends on it.
    if (tree_.WantsPlans()) tree_.Want(false);
    bySearch_ = true;
    LoadItemList(where, asked);
    model_.currentKind = NodeKind::Task;
    filter_.fraB3.SetVisible(true);
    commands_.cmdTaskOK.SetEnabled(false);
    selection_.UpdatePrint();
    if (onShown) onShown();
}

bool Listing::Reveal(const items::SavedItem& item) {
    filter_.Admit(item);
    SetSwitch(false);
    if (!Refill() || !form_.IsLoaded()) return false;
    if (tree_.Find(item) == TreePanel::kNone && filter_.ClearTexts()) Refill();
    const int node = tree_.Find(item);
    if (node == TreePanel::kNone) return false;
    tree_.Select(node);
    selection_.tvwTask_NodeClick(node);
    return true;
}

void Listing::LoadItemList(const std::string& where, const std::string& asked) {
    session_.database.EnsureConnection();
    const items::Filter filter = filter_.Choice();
    const auto list = [&](const std::string& condition) {
        return items::ListItems(condition, !filter.company.empty(),
                                items::OrderOf(tree_.OrderRow()), session_.DatabaseKind());
    };
    items::ListQuery query = list(where);
    const auto rows = session_.database.Open(query.statement);
    query.asked = asked;
    shown_ = std::move(query);
    counted_ = bySearch_ ? shown_.condition : list(filter_.BuildUndatedFilter()).condition;
    narrowedBy_ = filter_.Narrowing();
    Rebuild(*rows, [&](TreePanel::FillResult& result) {
        tree_.FillItems(*rows, filter, result);
        filter_.ShowKinds(result.any);
    });
}

void Listing::LoadTaskPlanList() {
    const auto rows = plans::OpenList(session_.database);
    Rebuild(*rows, [&](TreePanel::FillResult&) { tree_.FillPlans(*rows); });
}

void Listing::Rebuild(store::Recordset& rows,
                      const std::function<void(TreePanel::FillResult&)>& fill) {
    TreePanel::FillResult result;
    std::string reason;
    {
        const forms::TreeView::Fill deferred(tree_.tvwTask);
        tree_.Clear();
        try {
            fill(result);
        } catch (const RuntimeError& error) {
            reason = session_.Describe(error);
        }
    }
    model_.currentId = 0;
    view_.Clear();
    tree_.SelectFirst();
    rows.Close();
    if (!reason.empty() || result.rowsLeftOut > 0) ReportNotShown(result.rowsLeftOut, reason);
}

void Listing::ReportNotShown(int rows, const std::string& reason) {
    const std::string heading = session_.LoadText(resources::DesignText::RowsNotShown);
    std::string message = heading;
    if (rows > 0) message += ": " + std::to_string(rows);
    if (!reason.empty()) message += "\r\n" + reason;
    session_.windows.ShowMessage({message, heading}, forms::box::kExclamation);
}

void Listing::Empty() {
    tree_.Clear();
    model_.currentId = 0;
    view_.Clear();
    commands_.cmdTaskOK.SetEnabled(false);
    selection_.UpdatePrint();
    if (onEmptied) onEmptied();
}

std::function<void()> Listing::Remember() {
    return
        [this, shown = shown_, counted = counted_, narrowedBy = narrowedBy_, bySearch = bySearch_] {
            shown_ = shown;
            counted_ = counted;
            narrowedBy_ = narrowedBy;
            bySearch_ = bySearch;
        };
}

}  // namespace zv::windows

#include "mainwindow/item_saving.h"

#include "mainwindow/conflict_question.h"
#include "mainwindow/frm_task_main.h"
#include "resources/item_texts.h"
#include "scheduling/plan_store.h"
#include "session/text_checks.h"

namespace zv::mainwindow {
namespace {

using store::RowValues;
using store::Value;

std::string ModeWord(std::uint8_t mode) {
    switch (mode) {
        case kAdding:
            return "新增";
        case kDeleting:
            return "删除";
        default:
            return "修改";
    }
}

}  // namespace

bool ItemSaving::SaveItem() {
    const MainState& state = window_.state;
    Session& session = window_.session;
    session.state.cardId = window_.editor.NumberToStore();
    if (window_.cboType2.ListIndex() == kGuest && session.state.cardId < 1) {
        session.windows.ShowMessage("请输入客户资料！", forms::box::kExclamation);
        window_.SSTab1.SetTab(kCardTab);
        window_.txtCompSeek.SetFocus();
        return false;
    }
    const ItemEntry entry = Entry();
    const bool adds = state.editMode == kAdding;
    const std::string word = ModeWord(state.editMode);
    // The number of a plan that is shown is not an item's.
    const std::int32_t id = state.currentType == kPlan ? 0 : state.currentItemId;
    if (!MayJoinPlan()) return false;
    if (adds) {
        Add(id, entry);
    } else if (!Change(id, entry)) {
        return false;
    }
    window_.editor.ForgetRow();
    window_.txtUser2.SetText(session.state.UserName);
    session.windows.ShowMessage("[" + saved_.title + "]: " + word + "完毕 ！", forms::box::kOkOnly);
    return true;
}

bool ItemSaving::MayJoinPlan() const {
    Session& session = window_.session;
    const std::optional<std::int32_t> pick = window_.cards.Pick();
    if (!pick || window_.cboType2.ListIndex() != kTask) return true;
    const auto plan = scheduling::LoadPlan(session, *pick);
    if (!plan) return true;
    const std::string title = (*plan)[scheduling::PlanFieldIndex("taskTitle")].ToText();
    const auto text = [&session](resources::ItemText id) {
        return resources::GetItemText(id, session.state.Language);
    };
    return session.windows.ShowMessage(
               window_.chkEvent.Caption() + " [" + std::to_string(*pick) + " - " + title +
                   "]: " + text(resources::ItemText::BelongsToPlan) + "\r\n\r\n" +
                   text(resources::ItemText::SaveAnyway),
               forms::box::kOkCancel + forms::box::kExclamation) != forms::Answer::Cancel;
}

void ItemSaving::Add(std::int32_t id, const ItemEntry& entry) {
    const auto row = OpenRow(id);
    RowValues written(entry.size());
    row->AddNew();
    for (std::size_t i = 0; i < entry.size(); i++) {
        if (!entry[i]) continue;
        written[i] = *entry[i];
        row->SetField(kItemFields[i], written[i]);
    }
    row->Update();
    Remember(*row, written);
    row->Close();
}

void ItemSaving::Remember(const store::Recordset& row, const RowValues& written) {
    saved_ = {};
    saved_.title = written[ItemFieldIndex("taskTitle")].ToText();
    saved_.date = written[ItemFieldIndex("taskTime")].ToDate();
    saved_.kind = static_cast<std::uint8_t>(written[ItemFieldIndex("fType")].ToInt32());
    try {
        saved_.id = row.Field("fID").ToInt32();
    } catch (const RuntimeError&) {
        // Not every database tells the number of a row that it has just taken.
        saved_.id = 0;
    }
}

std::unique_ptr<store::Recordset> ItemSaving::OpenRow(std::int32_t id) const {
    // While a question stood the host may have closed the window, and the connection with it.
    window_.session.EnsureConnection();
    return window_.session.database.Open("select * from tTaskList where fID=" + std::to_string(id),
                                         store::CursorType::ForwardOnly,
                                         store::LockType::Optimistic);
}

bool ItemSaving::Change(std::int32_t id, const ItemEntry& entry) {
    const std::optional<RowValues>& asRead = window_.editor.RowAsRead();
    std::optional<store::RowMerge> merge;
    for (auto row = OpenRow(id);; row = OpenRow(id)) {
        if (row->Eof()) {
            row->Close();
            window_.session.windows.ShowMessage("原记录未有存在，操作取消！",
                                                forms::box::kExclamation);
            return false;
        }
        const RowValues stored = ReadItem(*row);
        if (!merge && asRead) {
            ItemEntry changes = store::ChangesOf(window_.editor.EntryAsShown(), entry);
            changes[ItemFieldIndex("fUser")] = entry[ItemFieldIndex("fUser")];
            merge.emplace(ItemGroups(), *asRead, std::move(changes));
        } else if (!merge) {
            merge.emplace(ItemGroups(), stored, entry);
        }
        if (merge->Conflicts(stored).empty()) {
            RowValues merged = merge->Merged(stored);
            Value& time = merged[ItemFieldIndex("taskTime")];
            if (time.IsNull()) time = *entry[ItemFieldIndex("taskTime")];
            // An item that was entered alerts at its moment.
            merged[ItemFieldIndex("tDuring1")] = merged[ItemFieldIndex("tDuring2")] = time;
            store::WriteRow(*row, kItemFields, merged);
            row->Update();
            Remember(*row, merged);
            row->Close();
            return true;
        }
        row->Close();
        // The questions may stand for long: then the row is opened again, and what has changed
        // meanwhile is asked about, too.
        if (!Settle(*merge, stored)) return false;
    }
}

bool ItemSaving::Settle(store::RowMerge& merge, const RowValues& stored) const {
    const ConflictQuestion question(window_, stored, merge.Own());
    for (const std::size_t group : merge.Conflicts(stored)) {
        const auto version = question.Ask(merge.Differences(group, stored));
        if (!version) return false;
        merge.Decide(group, *version, stored);
    }
    return true;
}

ItemEntry ItemSaving::Entry() const {
    const auto cut = [this](const forms::TextBox& box) {
        return box.MaxLength() == 0
                   ? box.Text()
                   : CutToBytes(window_.session.machine.codePage, box.Text(), box.MaxLength());
    };
    ItemEntry entry(kItemFields.size());
    const auto set = [&entry](std::string_view field, Value value) {
        entry[ItemFieldIndex(field)].emplace(std::move(value));
    };
    // A list without a selected row has nothing to store.
    const auto setRow = [&set](std::string_view field, const forms::ComboBox& list) {
        if (list.ListIndex() >= 0) set(field, Value(list.ListIndex()));
    };
    setRow("fType", window_.cboType2);
    set("fWay", Value(window_.cboWay.Text()));
    set("TaskID", Value(window_.editor.NumberToStore()));
    set("fGuest", Value(window_.txtName2.Text()));
    set("taskTitle", Value(cut(window_.txtTitle2)));
    set("tDoneMan", Value(window_.cboJbr2.Text()));
    for (const std::string_view field : {"taskTime", "tDuring1", "tDuring2"}) {
        set(field, Value(*window_.DTPicker2.Value()));
    }
    set("fContent", Value(window_.txtTaskCon.Text()));
    for (int i = 0; i < window_.txtOther.Count(); i++) {
        set("fOther" + std::to_string(i), Value(cut(window_.txtOther[i])));
    }
    set("fUser", Value(window_.session.state.UserName));
    setRow("tDone", window_.cboDone2);
    return entry;
}

}  // namespace zv::mainwindow

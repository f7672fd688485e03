#include "mainwindow/item_saving.h"

#include "mainwindow/conflict_question.h"
#include "mainwindow/frm_task_main.h"
#include "session/text_checks.h"

namespace zv::mainwindow {
namespace {

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

/// A list without a selected row has nothing to store.
std::optional<Value> RowOf(const forms::ComboBox& list) {
    if (list.ListIndex() < 0) return std::nullopt;
    return Value(list.ListIndex());
}

}  // namespace

bool ItemSaving::SaveItem() {
    const MainState& state = window_.state;
    Session& session = window_.session;
    if (window_.cboType2.ListIndex() == kGuest && session.state.cardId < 1) {
        session.windows.ShowMessage("请输入客户资料！", forms::box::kExclamation);
        window_.SSTab1.SetTab(kCardTab);
        window_.txtCompSeek.SetFocus();
        return false;
    }
    const ItemEntry entry = Entry();
    // The number of a plan that is shown is not an item's.
    const std::int32_t id = state.currentType == kPlan ? 0 : state.currentItemId;
    session.EnsureConnection();
    std::unique_ptr<store::Recordset> row = OpenRow(id);
    if (state.editMode == kAdding) {
        row->AddNew();
    } else if (!SettleConflicts(row, id, entry)) {
        return false;
    }
    for (std::size_t i = 0; i < kItemFields.size(); i++) {
        if (entry[i]) row->SetField(kItemFields[i], *entry[i]);
    }
    row->Update();
    Remember(*row, entry);
    row->Close();
    window_.editor.ForgetRow();
    window_.txtUser2.SetText(session.state.UserName);
    session.windows.ShowMessage("[" + saved_.title + "]: " + ModeWord(state.editMode) + "完毕 ！",
                                forms::box::kOkOnly);
    return true;
}

void ItemSaving::Remember(const store::Recordset& row, const ItemEntry& entry) {
    saved_ = {};
    saved_.title = entry[ItemFieldIndex("taskTitle")]->ToText();
    saved_.date = entry[ItemFieldIndex("taskTime")]->ToDate();
    if (const auto& kind = entry[ItemFieldIndex("fType")]) {
        saved_.kind = static_cast<std::uint8_t>(kind->ToInt32());
    }
    try {
        saved_.id = row.Field("fID").ToInt32();
    } catch (const RuntimeError&) {
        // Not every database tells the number of a row that it has just taken.
        saved_.id = 0;
    }
}

std::unique_ptr<store::Recordset> ItemSaving::OpenRow(std::int32_t id) const {
    return window_.session.database.Open("select * from tTaskList where fID=" + std::to_string(id),
                                         store::CursorType::ForwardOnly,
                                         store::LockType::Optimistic);
}

bool ItemSaving::SettleConflicts(std::unique_ptr<store::Recordset>& row, std::int32_t id,
                                 const ItemEntry& entry) const {
    std::optional<ItemRecord> known = window_.editor.RowAsRead();
    while (!row->Eof()) {
        const ItemRecord now = ReadItem(*row);
        const auto conflicts =
            known ? FindConflicts(*known, now, entry) : std::vector<std::size_t>();
        if (conflicts.empty()) return true;
        row->Close();
        if (!ConflictQuestion(window_, now, entry).MayOverwrite(conflicts)) return false;
        // The question may have stood for long: what is overwritten is what it showed.
        known = now;
        row = OpenRow(id);
    }
    row->Close();
    window_.session.windows.ShowMessage("原记录未有存在，操作取消！", forms::box::kExclamation);
    return false;
}

ItemEntry ItemSaving::Entry() const {
    const auto cut = [this](const forms::TextBox& box) {
        return box.MaxLength() == 0
                   ? box.Text()
                   : CutToBytes(window_.session.machine.codePage, box.Text(), box.MaxLength());
    };
    ItemEntry entry;
    const auto set = [&entry](std::string_view field, std::optional<Value> value) {
        entry[ItemFieldIndex(field)] = std::move(value);
    };
    set("fType", RowOf(window_.cboType2));
    set("fWay", Value(window_.cboWay.Text()));
    set("TaskID", Value(window_.session.state.cardId));
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
    set("tDone", RowOf(window_.cboDone2));
    return entry;
}

}  // namespace zv::mainwindow

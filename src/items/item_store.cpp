#include "items/item_store.h"

#include <limits>
#include <utility>

#include "store/sql_text.h"

namespace zv::items {
namespace {

std::string ItemStatement(std::int32_t id) {
    return std::string(ItemTable().select) + std::to_string(id);
}

std::unique_ptr<store::Recordset> OpenRow(store::Database& database, std::int32_t id) {
    // While a question stood the host may have closed the window, and the connection with it.
    database.EnsureConnection();
    return database.Open(ItemStatement(id), store::CursorType::ForwardOnly,
                         store::LockType::Optimistic);
}

bool FitsIn16Bits(std::int32_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    return number >= Limits::min() && number <= Limits::max();
}

SavedItem Described(const store::Recordset& row, const ItemRow& written) {
    SavedItem saved;
    saved.title = written[field::kTitle].ToText();
    saved.date = written[field::kTime].ToDate();
    saved.kind = KindOf(written[field::kKind].ToInt32()).value_or(ItemKind::Task);
    saved.state = StateOf(written[field::kState].ToInt32()).value_or(ItemState::NotDone);
    saved.id = store::NumberOfNewRow(row, ItemTable().numberedBy);
    return saved;
}

}  // namespace

std::optional<ItemRow> Load(store::Database& database, std::int32_t id) {
    database.EnsureConnection();
    const auto row = database.Open(ItemStatement(id));
    std::optional<ItemRow> item;
    if (!row->Eof()) item = ReadItem(*row);
    row->Close();
    return item;
}

void Delete(store::Database& database, std::int32_t id) {
    database.EnsureConnection();
    database.Execute(std::string(ItemTable().erase) + std::to_string(id));
}

bool Mark(store::Database& database, std::int32_t id, ItemState state, std::string_view doer) {
    return Mark(database, id, static_cast<std::int16_t>(Number(state)), doer);
}

bool Mark(store::Database& database, std::int32_t id, std::int16_t state, std::string_view doer) {
    if (id == 0) return false;
    constexpr std::string_view kStateColumn = kColumns[field::kState];
    constexpr std::string_view kDoerColumn = kColumns[field::kDoer];
    if (!FitsIn16Bits(id) || store::BreaksLiteral(doer)) {
        database.SetFields(ItemStatement(id), {{kStateColumn, store::Value(state)},
                                               {kDoerColumn, store::Value(doer)}});
    } else {
        std::string statement = "Update tTaskList Set ";
        statement.append(kStateColumn).append("=" + std::to_string(state) + ",");
        statement.append(kDoerColumn).append(" = '").append(doer);
        database.Execute(statement + "' where fID =" + std::to_string(id));
    }
    return true;
}

SavedItem Add(store::Database& database, std::int32_t id, const ItemEntry& entry) {
    const auto row = OpenRow(database, id);
    ItemRow written(entry.size());
    row->AddNew();
    for (std::size_t i = 0; i < entry.size(); i++) {
        if (!entry[i]) continue;
        written[i] = *entry[i];
        row->SetField(kColumns[i], written[i]);
    }
    row->Update();
    SavedItem saved = Described(*row, written);
    row->Close();
    saved.change = {&ItemTable(), saved.id, std::nullopt, entry};
    return saved;
}

ItemChange::ItemChange(store::Database& database, std::int32_t id, ItemEntry entry,
                       std::optional<ItemRow> asRead, ItemEntry asShown)
    : database_(database),
      id_(id),
      entry_(std::move(entry)),
      asRead_(std::move(asRead)),
      asShown_(std::move(asShown)) {}

ItemChange::Outcome ItemChange::Save() {
    const auto row = OpenRow(database_, id_);
    if (row->Eof()) {
        row->Close();
        return Gone{};
    }
    const ItemRow stored = ReadItem(*row);
    if (!merge_ && asRead_) {
        ItemEntry changes = store::ChangesOf(asShown_, entry_);
        changes[field::kUser] = entry_[field::kUser];
        merge_.emplace(MergeGroups(), *asRead_, std::move(changes));
    } else if (!merge_) {
        merge_.emplace(MergeGroups(), stored, entry_);
    }
    if (!merge_->Conflicts(stored).empty()) {
        row->Close();
        return Conflict{stored};
    }
    return Write(*row, stored);
}

SavedItem ItemChange::Write(store::Recordset& row, const ItemRow& stored) const {
    ItemRow merged = merge_->Merged(stored);
    store::Value& time = merged[field::kTime];
    if (time.IsNull()) time = *entry_[field::kTime];
    // An item that was entered alerts at its moment.
    merged[field::kAlertFrom] = merged[field::kAlertUntil] = time;
    store::WriteRow(row, kColumns, merged);
    row.Update();
    SavedItem saved = Described(row, merged);
    row.Close();
    saved.change = {&ItemTable(), id_, changes::Known(stored), changes::Known(merged)};
    return saved;
}

}  // namespace zv::items

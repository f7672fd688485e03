// Items in the database. Database errors reach the caller.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/date_time.h"
#include "items/item_row.h"
#include "store/database.h"

namespace zv::items {

/// The row of an item; nothing when there is none.
std::optional<ItemRow> Load(store::Database& database, std::int32_t id);

/// Deletes an item; one that is gone is no error.
void Delete(store::Database& database, std::int32_t id);

/// Writes the state of an item and who brought it there, and says whether that was done; also for
/// an item that is gone, which Database::ChangedNothing answers. Nothing is done for the
/// number 0. A name with an apostrophe, and a number beyond 16 bits, goes through a recordset.
bool Mark(store::Database& database, std::int32_t id, ItemState state, std::string_view doer);
/// The same with a state that a host gives: any number.
bool Mark(store::Database& database, std::int32_t id, std::int16_t state, std::string_view doer);

/// An item as it was written.
struct SavedItem {
    std::int32_t id = 0;  ///< fID; 0 when the database does not give that of a new row
    ItemKind kind = ItemKind::Task;
    std::string title;
    DateTime date;
    ItemState state = ItemState::NotDone;
    changes::RowChange change{};  ///< of the row; without a table for an item that was only found
};

/// Writes an item as a new row. `id` opens the table: that of any item, 0 for none.
SavedItem Add(store::Database& database, std::int32_t id, const ItemEntry& entry);

/// Joins what was entered with what somebody else stored since the item was shown, and writes it.
class ItemChange {
 public:
    /// This user and somebody else changed the same: to be decided about in Merge().
    struct Conflict {
        ItemRow stored;
    };
    struct Gone {};
    using Outcome = std::variant<SavedItem, Conflict, Gone>;

    /// `asRead` is the row as the item was shown, and `asShown` what the untouched editor would
    /// store; without a row everything entered counts as a change of what is stored.
    ItemChange(store::Database& database, std::int32_t id, ItemEntry entry,
               std::optional<ItemRow> asRead, ItemEntry asShown);

    /// Writes the row unless there is something to decide. No recordset is open afterwards. May be
    /// called again after a conflict was decided about: what has changed meanwhile counts.
    Outcome Save();
    store::RowMerge& Merge() { return *merge_; }

 private:
    SavedItem Write(store::Recordset& row, const ItemRow& stored) const;

    store::Database& database_;
    std::int32_t id_;
    ItemEntry entry_;
    std::optional<ItemRow> asRead_;
    ItemEntry asShown_;
    std::optional<store::RowMerge> merge_;
};

}  // namespace zv::items

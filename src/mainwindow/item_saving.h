// Writes the editor back to the item list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "mainwindow/item_record.h"
#include "store/connection.h"

namespace zv::mainwindow {

class frmTaskMain;

/// An item as it was written.
struct SavedItem {
    std::int32_t id = 0;  ///< fID; 0 when the database does not tell that of a new row
    std::uint8_t kind = 0;
    std::string title;
    DateTime date;
};

class ItemSaving {
 public:
    explicit ItemSaving(frmTaskMain& window) : window_(window) {}

    /// Writes the editor as the edit mode says: 1 as a new item, any other into the current one.
    /// False when nothing was written, which the user has been told then. Database errors reach
    /// the caller and leave the editor as it is.
    bool SaveItem();
    /// What was written last.
    const SavedItem& Saved() const { return saved_; }

    /// What the controls hold.
    ItemEntry Entry() const;

 private:
    std::unique_ptr<store::Recordset> OpenRow(std::int32_t id) const;
    /// A task under the number of a plan is one of the plan's: false when the user calls it off.
    bool MayJoinPlan() const;
    /// Writes a new row. `id` is that of the item shown, 0 for none.
    void Add(std::int32_t id, const ItemEntry& entry);
    /// Joins the entry with what somebody else stored since the item was shown, asks about what
    /// both changed, and writes the row. False when the user called it off, or when the row is
    /// gone, which the user has been told.
    bool Change(std::int32_t id, const ItemEntry& entry);
    bool Settle(store::RowMerge& merge, const store::RowValues& stored) const;
    void Remember(const store::Recordset& row, const store::RowValues& written);

    frmTaskMain& window_;
    SavedItem saved_;
};

}  // namespace zv::mainwindow

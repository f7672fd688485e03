// Writes the editor back to the item list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "mainwindow/item_record.h"

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

 private:
    ItemEntry Entry() const;
    std::unique_ptr<store::Recordset> OpenRow(std::int32_t id) const;
    /// Asks before what somebody else stored since the item was shown is overwritten. False when
    /// the user called it off, or when the row is gone, which the user has been told; the row is
    /// closed then.
    bool SettleConflicts(std::unique_ptr<store::Recordset>& row, std::int32_t id,
                         const ItemEntry& entry) const;

    void Remember(const store::Recordset& row, const ItemEntry& entry);

    frmTaskMain& window_;
    SavedItem saved_;
};

}  // namespace zv::mainwindow

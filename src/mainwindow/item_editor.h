// The editor that shows one item of the list, or a plan.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "mainwindow/item_record.h"

namespace zv::mainwindow {

class frmTaskMain;

class ItemEditor {
 public:
    explicit ItemEditor(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// Shows the item whose fID is the current item id; without such an item, and when it cannot be
    /// read, empties the editor and sets the id to 0. Database errors reach the caller.
    void ShowItem();
    /// Tells what ShowItem found wrong with the card of a visit, once. Apart from it, because the
    /// tree and the editor may be filled anew while the box stands.
    void TellAboutCard();
    /// Shows the plan whose TaskID is the current item id; without it the same.
    void ShowEventPlan();
    void ClearItemEditor();
    /// Locks the fields against typing, or opens them.
    void SetLocked(bool locked);
    void cboType2_Click();
    /// Shows the card of the visit shown, unless it is the one shown.
    void ShowCardAgain();

    /// The title of the item or plan that is current, which the editor shows unless a new one is
    /// being entered.
    const std::string& StoredTitle() const { return title_; }
    /// A new item begins: of this kind, a visit with the card that is shown then.
    void BeginNew(std::uint8_t kind, std::int32_t card);
    /// The card, or the plan, that a save stores. What the user picked stays, whatever the kind;
    /// otherwise a visit's number means nothing to another kind, nor the other way round.
    std::int32_t NumberToStore() const;

    /// The row that the editor shows, as it was read; none while it shows no item.
    const std::optional<store::RowValues>& RowAsRead() const { return asRead_; }
    /// What a save would store of the row if nothing were touched.
    const ItemEntry& EntryAsShown() const { return asShown_; }
    /// The row that the editor shows got this value by an act of this window.
    void NoteStored(std::string_view field, store::Value value);
    void ForgetRow() { asRead_.reset(); }
    /// As forms::Control::Remember, for what stands behind the fields.
    std::function<void()> Remember();

 private:
    /// Empties the editor and sets the current number to 0 unless `load` shows what it has.
    void ShowOrClear(const std::function<bool()>& load);
    bool LoadItem();
    bool LoadPlan();
    void ShowWay(const std::string& way);
    void ShowGuestCard(std::int32_t card);

    frmTaskMain& window_;
    std::optional<store::RowValues> asRead_;
    ItemEntry asShown_;
    /// The kind and the number that the edit begins with.
    bool beganAsVisit_ = false;
    std::int32_t firstNumber_ = 0;
    std::string title_;
    std::string cardNotice_;
    bool loading_ = false;
};

}  // namespace zv::mainwindow

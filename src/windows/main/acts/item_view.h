// Shows one item of the list, or a plan, in the controls that edit it, and knows what a save of
// them would change.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "items/item_row.h"
#include "session/session.h"
#include "windows/main/acts/item_values.h"
#include "windows/main/main_model.h"
#include "windows/main/panels/card_panel.h"
#include "windows/main/panels/content_panel.h"
#include "windows/main/panels/item_panel.h"

namespace zv::windows {

class ItemView {
 public:
    /// All must outlive this.
    ItemView(Session& session, MainModel& model, ItemPanel& head, ContentPanel& content,
             CardPanel& cards);

    /// Something else is shown, or nothing.
    std::function<void()> onShown;
    /// What was typed is about to give way to something else; the boxes still hold it.
    std::function<void()> onInputDropped;

    /// Shows what is current in the model; without such an item or plan, and when it cannot be
    /// read, empties the editor and sets the current number to 0. Database errors reach the caller.
    void ShowItem();
    void ShowPlan();
    void Clear();
    /// The focus goes to where the input goes on.
    void FocusInput(bool onCardPage);
    /// Shows what items have, or plans.
    void ShowFor(bool plans);
    /// Shows what ShowItem found wrong with the card of a visit, once. Apart from it, because the
    /// tree and the editor may be filled anew while the box stands.
    void ReportCard();
    /// Shows the card of the visit shown, unless it is the one shown.
    void ShowCardAgain();

    /// The title of the item or plan that is current, which the editor shows unless a new one is
    /// being entered.
    const std::string& StoredTitle() const { return title_; }
    /// A new item begins: of this kind, a visit with the card that is shown then.
    void BeginNew(items::ItemKind kind, std::int32_t card);
    /// The card, or the plan, that a save stores. What the user picked stays, whatever the kind;
    /// otherwise a visit's number means nothing to another kind, nor the other way round.
    std::int32_t NumberToStore() const;

    /// What the controls hold.
    items::ItemEntry Entry() const { return values_.Entry(NumberToStore()); }
    const ItemValues& Values() const { return values_; }
    /// The row that the editor shows, as it was read; none while it shows no item.
    const std::optional<items::ItemRow>& RowAsRead() const { return asRead_; }
    /// What a save would store of the row if nothing were touched.
    const items::ItemEntry& EntryAsShown() const { return asShown_; }
    /// The row that the editor shows got this value by an act of this window.
    void NoteStored(std::size_t field, const store::Value& value);
    void ForgetRow() { asRead_.reset(); }
    /// What stands in the boxes is where the edit under way begins.
    void NoteBegin();
    /// The user has changed something since.
    bool HoldsInput() const;
    /// The state that the window had when that edit began.
    const MainState& StateOfInput() const { return began_->state; }
    /// Hands on what was typed, and has nothing to lose then.
    void DropInput();
    /// As forms::Control::Remember, for what stands behind the fields.
    std::function<void()> Remember();

 private:
    /// Empties the editor and sets the current number to 0 unless `load` shows what it has.
    void ShowOrClear(const std::function<bool()>& load);
    bool LoadItem();
    bool LoadPlan();
    void ShowGuestCard(std::int32_t card);
    void KindChosen();
    bool IsVisit() const;

    Session& session_;
    MainModel& model_;
    ItemPanel& head_;
    ContentPanel& content_;
    CardPanel& cards_;
    ItemValues values_;
    std::optional<items::ItemRow> asRead_;
    items::ItemEntry asShown_;
    struct Beginning {
        MainState state;
        items::ItemEntry entry;
    };
    std::optional<Beginning> began_;
    /// The kind and the number that the edit begins with.
    bool beganAsVisit_ = false;
    std::int32_t firstNumber_ = 0;
    std::string title_;
    std::string cardNotice_;
    bool loading_ = false;
};

/// The boxes of all fields that the window shows.
std::vector<FieldBox> AllBoxes(ItemPanel& head, ContentPanel& content, CardPanel& cards);

}  // namespace zv::windows

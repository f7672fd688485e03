// Adding, changing, deleting, saving and calling off, from the buttons and from the menus.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "items/item_store.h"
#include "windows/main/acts/field_labels.h"
#include "windows/main/acts/listing.h"
#include "windows/main/acts/plan_commands.h"
#include "windows/main/panels/status_panel.h"

namespace zv::windows {

class Editing {
 public:
    /// What is typed into, and what shows that something may be or was done.
    struct Panels {
        forms::TabPanel& tabs;
        TreePanel& tree;
        ItemPanel& head;
        CardPanel& cards;
        CommandPanel& commands;
        StatusPanel& status;
    };
    /// What the edits go by and lead to.
    struct Acts {
        const FieldLabels& labels;
        ItemView& view;
        Selection& selection;
        Listing& listing;
        PlanCommands& plans;
    };
    /// All that is named must outlive this.
    Editing(forms::Form& form, Session& session, MainModel& model, const Panels& panels,
            const Acts& acts);

    /// 0 cancel, 1 add, 2 change, 3 delete: asks the module gate first.
    void cmdAction_Click(std::int16_t index);
    void cmdSave_Click();
    /// Shows the item that the list did not show after it was saved.
    void cmdShowSaved_Click();
    void cmdCancel_Click();
    void StartAddItem(items::ItemKind kind);
    void StartChangeItem(items::ItemKind kind);
    /// Delete the item, or the plan with all its items, that is current.
    void DeleteItem();
    void DeletePlan();
    /// Brings the card of the visit shown forward.
    void mnuGuestConnect_Click();
    /// Proposes a title for a visit to a company, while one is being entered.
    void ProposeTitle(const std::string& company);

    /// Writes the editor as the edit mode says: as a new item, or into the current one. Nothing
    /// when nothing was written, which a message has said then. Database errors reach the
    /// caller and leave the editor as it is.
    std::optional<items::SavedItem> SaveItem();

 private:
    void Wire();
    void Dispatch(EditMode mode, NodeKind node);
    void Delete(bool plan);
    std::optional<items::SavedItem> Change(std::int32_t id, const items::ItemEntry& entry);
    bool Settle(store::RowMerge& merge, const items::ItemRow& stored) const;
    bool HasCustomer();
    /// A task under the number of a plan is one of the plan's: false when the user calls it off.
    bool MayJoinPlan() const;
    void ReportWhenNotListed(const items::SavedItem& saved);
    template <class Id>
    std::string NoticeOf(const items::SavedItem& saved, Id id) const;
    std::string TitleToDelete() const;
    std::string DeleteQuestion(bool plan) const;
    /// The rows that deleting takes, as far as it is known what they hold.
    std::vector<changes::RowChange> WhatGoes(const ItemRef& item);
    void AnnounceDeleted(const ItemRef& item);
    void ShowAsDeleted(const ItemRef& item);

    forms::Form& form_;
    Session& session_;
    MainModel& model_;
    const Panels panels_;
    const Acts acts_;
    std::optional<items::SavedItem> saved_;  ///< the last one that the list did not show
};

}  // namespace zv::windows

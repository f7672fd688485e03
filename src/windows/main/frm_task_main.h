// The main window: task tree, filter, item editor, customer card and options. Panels own the
// controls, the parts below them are what the user does with them; this class puts them together.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/containers.h"
#include "forms/form.h"
#include "session/session.h"
#include "session/store_client.h"
#include "windows/main/acts/advanced_search.h"
#include "windows/main/acts/completion.h"
#include "windows/main/acts/dropped_input.h"
#include "windows/main/acts/editing.h"
#include "windows/main/acts/field_labels.h"
#include "windows/main/acts/item_view.h"
#include "windows/main/acts/keys.h"
#include "windows/main/acts/listing.h"
#include "windows/main/acts/overview.h"
#include "windows/main/acts/plan_commands.h"
#include "windows/main/acts/printing.h"
#include "windows/main/acts/selection.h"
#include "windows/main/acts/staff_names.h"
#include "windows/main/main_model.h"
#include "windows/main/panels/birthday_panel.h"
#include "windows/main/panels/card_panel.h"
#include "windows/main/panels/command_panel.h"
#include "windows/main/panels/content_panel.h"
#include "windows/main/panels/filter_panel.h"
#include "windows/main/panels/item_panel.h"
#include "windows/main/panels/options_panel.h"
#include "windows/main/panels/status_panel.h"
#include "windows/main/panels/tree_panel.h"
#include "windows/notice/notice_line.h"

namespace zv::windows {

class frmTaskMain : public forms::Form, public StoreClient {
 public:
    static constexpr std::string_view kName = "frmTaskMain";

    /// The session must outlive the window.
    frmTaskMain(forms::WindowSystem& windows, Session& owner);

    /// The start mode: 0 alert, 1 manager, 9 cards. A loaded window without an edit under way is
    /// set up for it when it is in another mode, and moves to the present day otherwise.
    void TaskAlert(std::int16_t mode);
    /// What an alert pass does with a window that the user works with: shows the present day's
    /// items, unless input is under way. True when the window is there to alert and something is
    /// due.
    bool AlertAgain();
    /// Something is due: the tree holds more than its empty groups.
    bool HasAlert() const;
    /// How many items the tree holds, without the nodes of their groups.
    std::int32_t ItemsShown() const { return tree.ItemsShown(); }

    /// Asks for a file; empty when the user cancels or the dialog fails. Kind 1: the file must
    /// exist; any other: it may be created.
    std::string getFilePath(std::int16_t kind, const std::string& filter,
                            const std::string& fileName, const std::string& dialogTitle,
                            const std::string& folder);

    void cmdExit_Click();
    /// Sets every caption in the control's language.
    void LoadCaptions();

    bool HoldsInput() const override { return model.Editing(); }
    bool HoldsUnsavedInput() const override { return view.HoldsInput(); }
    /// Nothing is current afterwards: numbers of the former store mean something else in another.
    void ForgetStore() override;
    void ShowStore() override;
    void ShowRows(const std::vector<changes::RowChange>& rows) override;

    Session& session;
    MainModel model;

    // Order of creation is tab order, but for what SetTabOrder puts first.
    TreePanel tree;
    ItemPanel item;
    forms::TabPanel SSTab1;
    ContentPanel content;
    FilterPanel filter;
    CardPanel cards;
    BirthdayPanel birthdays;
    OptionsPanel options;
    CommandPanel commands;
    StatusPanel status;
    NoticeLine notice;

    // Each uses only what stands above it.
    StaffNames staff;
    FieldLabels labels;
    ItemView view;
    Selection selection;
    Listing listing;
    Overview overview;
    PlanCommands plans;
    Editing editing;
    Completion completion;
    AdvancedSearch search;
    Printing printing;
    DroppedInput droppedInput;
    Keys keys;

 protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_Unload(bool& cancel) override;
    /// The other windows go with this one.
    bool MayLeave() override;

 private:
    void Wire();
    void OrderTabs();
    void PlaceControls();
    void PlaceLastLine();
    void LoadControls();
    void SetCaptions();
    /// Sets the window up for its start mode and fills the tree.
    void Start();
    void StartIn(std::int16_t mode);
    void StartCards();
    void LimitSearch();
    /// Moves what stands on the day of the last look to the present day; true when the tree is to
    /// be filled again.
    bool FollowTheDay();
    /// Closes the connection unless another window is left, which may be working with it.
    void CloseStoreIfLast();
    /// Changes the window altogether, or when that fails not at all.
    void AllOrNothing(const std::function<void()>& change);
    void PopupPictureMenu(int x, int y);
};

}  // namespace zv::windows

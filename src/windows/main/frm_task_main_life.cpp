// Start, activation and end of the main window.
#include <algorithm>

#include "resources/text_ids.h"
#include "session/module_gate.h"
#include "session/store_choice.h"
#include "windows/main/frm_task_main.h"

namespace zv::windows {
namespace {

using resources::DesignText;

// Holds the tree back while start values are set, and lets it go again on every way out.
class Starting {
 public:
    explicit Starting(MainModel& model) : model_(model) { model_.starting = true; }
    ~Starting() { model_.starting = false; }
    Starting(const Starting&) = delete;
    Starting& operator=(const Starting&) = delete;

 private:
    MainModel& model_;
};

}  // namespace

void frmTaskMain::Form_Load() {
    try {
        LoadControls();
        Start();
    } catch (...) {
        // Such a window is never unloaded.
        CloseStoreIfLast();
        throw;
    }
}

void frmTaskMain::LoadControls() {
    const Starting starting(model);
    Center();
    options.LoadDatabase();
    SetCaptions();
    SSTab1.SetTab(kItemTab);
    options.LoadStartup();
    session.database.EnsureConnection();
    session.acts.ForgetOthers();
    tree.LoadLists();
    item.LoadLists();
    filter.LoadLists();
    cards.LoadLists();
    birthdays.LoadGrid();
    options.LoadStaffSource();
    model.LockEditor();
}

void frmTaskMain::SetCaptions() {
    tree.SetCaptions();
    labels.ShowCaptions();
    content.SetCaptions();
    filter.SetCaptions();
    cards.SetCaptions();
    birthdays.SetCaptions();
    options.SetCaptions();
    commands.SetCaptions();
    status.SetCaptions();
    overview.ShowAgain();
    keys.ShowToolTips();
}

void frmTaskMain::LoadCaptions() {
    commands.SetStartCaptions();
    tree.SetStartCaption();
    options.SetStartCaptions();
    SetCaptions();
}

void frmTaskMain::Start() {
    // While the password of a module is asked for, the host may ask for another mode.
    for (bool settled = false; !settled;) {
        const std::int16_t mode = model.startMode;
        StartIn(mode);
        settled = model.startMode == mode;
    }
}

void frmTaskMain::StartIn(std::int16_t mode) {
    {
        const Starting starting(model);
        commands.menus.mnuSeek2.SetEnabled(true);
        commands.menus.mnuPrintList.SetEnabled(true);
        item.SetMemo("");
        tree.Want(false);
        filter.LoadOwnItems();
        if (model.startMode != mode) return;
        filter.SetStartValues();
        LimitSearch();
        // Before the tree is filled, so that it is filled once and in the order that the list
        // shows.
        tree.cboOrder.SetListIndex(0);
        LoadCaptions();
    }
    if (mode == kCardMode) {
        StartCards();
        if (model.startMode != mode) return;
    } else {
        listing.chkEvent_Click();
    }
    if (mode == kAlertMode) SetCaption(session.LoadText(text_id::kAlertCaption));
    if (mode == kManagerMode) SetCaption(session.LoadText(text_id::kManagerCaption));
    // A reminder left over from another mode is switched off, or filled anew.
    birthdays.Switch(false);
    birthdays.ShowDay();
    if (mode != kCardMode) birthdays.Switch(options.WantsBirthdays());
}

bool frmTaskMain::FollowTheDay() {
    birthdays.FollowTheDay();
    return filter.FollowTheDay();
}

void frmTaskMain::LimitSearch() {
    const ControlState& control = session.state;
    if (control.ZgName != control.UserName && model.startMode != kManagerMode &&
        filter.OwnItemsOnly()) {
        commands.menus.mnuSeek2.SetEnabled(false);
    }
}

void frmTaskMain::StartCards() {
    constexpr std::string_view kMemoPrefix = "◆ ";
    const ControlState& control = session.state;
    SetCaption(session.LoadText(DesignText::CardView));
    if (control.AlertType > 0) {
        commands.menus.mnuPrintList.SetEnabled(false);
        item.SetMemo(std::string(kMemoPrefix) + session.LoadText(text_id::kCardBox) + " " +
                     std::to_string(control.AlertType));
    }
    SSTab1.SetTab(kCardTab);
    if (!control.myName.empty()) filter.GiveCompany(control.myName);
    listing.chkEvent_Click();
    cards.LoadStartList();
    const std::int32_t card = control.myTaskID;
    const std::int16_t right = CheckModule(session, "mnuCardPlan", 1, 0);
    if (model.startMode != kCardMode) return;
    if (card > 0 && right > 0 && tree.Count() < 2) {
        cards.LoadCardList(cards::IsCard(card));
        if (cards.cboComp2.ListCount() > 0) cards.cboComp2.SetListIndex(0);
    }
}

void frmTaskMain::Form_Activate() {
    // The user can go on without the names.
    session.windows.FromUser([this] { staff.FillIfNeeded(); });
    session.windows.FromUser([this] { labels.FillIfNeeded(); });
    if (model.startMode != kCardMode || session.state.myTaskID < 1) return;
    cards.cboComp2_LostFocus();
    item.FocusTitle();
}

void frmTaskMain::Form_Resize() {
    PlaceControls();
}

void frmTaskMain::CloseStoreIfLast() {
    const auto windows = session.windows.Windows();
    const bool last = std::all_of(windows.begin(), windows.end(),
                                  [this](const forms::Form* one) { return one == this; });
    if (last) session.database.Leave();
}

void frmTaskMain::Form_Unload(bool&) {
    // A window that the user never saw takes nothing with it.
    if (!WasSeen()) return CloseStoreIfLast();
    session.database.Leave();
    ForgetChoices(session.state);
    for (forms::Form* other : session.windows.Windows()) {
        if (other != this && !other->ComesByItself()) other->Unload();
    }
}

}  // namespace zv::windows

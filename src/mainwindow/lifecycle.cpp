#include "mainwindow/lifecycle.h"

#include <algorithm>
#include <utility>

#include "base/number.h"
#include "mainwindow/frm_task_main.h"
#include "reports/item_names.h"
#include "resources/switch_setting.h"
#include "resources/text_ids.h"
#include "session/module_gate.h"
#include "session/store_choice.h"

namespace zv::mainwindow {
namespace {

// Holds the tree back while start values are set, and lets it go again on every way out.
class Starting {
 public:
    explicit Starting(MainState& state) : state_(state) { state_.starting = true; }
    ~Starting() { state_.starting = false; }
    Starting(const Starting&) = delete;
    Starting& operator=(const Starting&) = delete;

 private:
    MainState& state_;
};

}  // namespace

void Lifecycle::Form_Load() {
    {
        const Starting starting(window_.state);
        window_.Center();
        window_.options.LoadDatabase();
        window_.captions.LoadDesign();
        window_.cancelButton = &window_.cmdExit;
        window_.SSTab1.SetTab(kItemTab);
        window_.alerts.Load();
        window_.session.EnsureConnection();
        LoadLists();
        LoadGrid();
        window_.options.LoadStaffSource();
        window_.editor.SetLocked(true);
    }
    Start();
}

void Lifecycle::LoadLists() {
    using resources::DesignText;
    const auto text = [this](DesignText id) { return window_.captions.Text(id); };
    window_.cboOrder.SetItems({text(DesignText::OrderByDate), text(DesignText::OrderByTitle),
                               text(DesignText::OrderByPlan)});
    window_.cboType2.SetItems(reports::KindNames(window_.session));
    std::vector<std::string> states = reports::StateNames(window_.session);
    window_.cboDone2.SetItems(states);
    states.push_back(text(DesignText::StateAll));
    states.push_back(text(DesignText::StateNotYetDone));
    window_.cboState.SetItems(std::move(states));
    window_.cboWay.SetItems(
        {text(DesignText::WayTelephone), text(DesignText::WayEmail), text(DesignText::WayWeb)});
}

void Lifecycle::LoadGrid() {
    using resources::DesignText;
    const auto text = [this](DesignText id) { return window_.captions.Text(id); };
    window_.Grid1.SetColumns({{text(DesignText::CardCode), 80, true},
                              {text(DesignText::CardName), 90, true},
                              {text(DesignText::Company), 220, true},
                              {text(DesignText::Birthday), 90, true},
                              {"fID", 60, false}});
    window_.Grid1.SetVisible(false);
}

void Lifecycle::Start() {
    // While the password of a module is asked for, the host may ask for another mode.
    for (bool settled = false; !settled;) {
        const std::int16_t mode = window_.state.startMode;
        StartIn(mode);
        settled = window_.state.startMode == mode;
    }
}

void Lifecycle::StartIn(std::int16_t mode) {
    {
        const Starting starting(window_.state);
        window_.menus.mnuSeek2.SetEnabled(true);
        window_.menus.mnuPrintList.SetEnabled(true);
        window_.lblCardMemo.SetCaption("");
        window_.chkEvent.SetValue(0);
        LoadOwnFilters();
        if (window_.state.startMode != mode) return;
        window_.filter.SetStartValues();
        LimitSearch();
        // Before the tree is filled, so that it is filled once and in the order that the list
        // shows.
        window_.cboOrder.SetListIndex(0);
        window_.captions.Load();
    }
    if (mode == kCardMode) {
        StartCards();
        if (window_.state.startMode != mode) return;
    } else {
        window_.tree.chkEvent_Click();
    }
    if (mode == kAlertMode) window_.SetCaption(window_.session.LoadText(text_id::kAlertCaption));
    if (mode == kManagerMode)
        window_.SetCaption(window_.session.LoadText(text_id::kManagerCaption));
    // A reminder left over from another mode is switched off, or filled anew.
    window_.chkBirthDay0.SetValue(0);
    window_.birthdays.ShowDay();
    if (mode != kCardMode) window_.chkBirthDay0.SetValue(window_.chkBirthDay.Value());
}

bool Lifecycle::FollowTheDay() {
    window_.birthdays.FollowTheDay();
    return window_.filter.FollowTheDay();
}

void Lifecycle::LoadOwnFilters() {
    Session& session = window_.session;
    if (window_.state.startMode == kCardMode) {
        window_.chkJbr.SetValue(CheckModule(session, "mnuCardLimited", 0, 0) < 1 ? 1 : 0);
        // A limit by right is no choice of the user's, so it is not stored as one.
        window_.chkJbr.tag = std::to_string(window_.chkJbr.Value());
        window_.chkUser.tag = std::to_string(window_.chkUser.Value());
        return;
    }
    const std::string stored = session.GetSetting(resources::kTaskSection, "JbrName", "0");
    window_.chkJbr.SetValue(resources::SwitchOf(stored));
    window_.chkJbr.tag = std::to_string(window_.chkJbr.Value());
    window_.chkUser.SetValue(0);
    window_.chkUser.tag = "0";
}

void Lifecycle::LimitSearch() {
    const ControlState& control = window_.session.state;
    if (control.ZgName != control.UserName && window_.state.startMode != kManagerMode &&
        (window_.chkJbr.Checked() || window_.chkUser.Checked())) {
        window_.menus.mnuSeek2.SetEnabled(false);
    }
}

void Lifecycle::StartCards() {
    constexpr std::string_view kMemoPrefix = "◆ ";
    const ControlState& control = window_.session.state;
    window_.SetCaption(window_.captions.Text(resources::DesignText::CardView));
    if (control.AlertType > 0) {
        window_.menus.mnuPrintList.SetEnabled(false);
        window_.lblCardMemo.SetCaption(std::string(kMemoPrefix) +
                                       window_.session.LoadText(text_id::kCardBox) + " " +
                                       std::to_string(control.AlertType));
    }
    window_.SSTab1.SetTab(kCardTab);
    if (!control.myName.empty()) window_.filter.GiveCompany(control.myName);
    window_.tree.chkEvent_Click();
    window_.cards.LoadStartList();
    const std::int32_t card = control.myTaskID;
    const std::int16_t right = CheckModule(window_.session, "mnuCardPlan", 1, 0);
    if (window_.state.startMode != kCardMode) return;
    if (card > 0 && right > 0 && window_.tvwTask.Count() < 2) {
        window_.cards.LoadCardList("fid=" + std::to_string(card));
        if (window_.cboComp2.ListCount() > 0) window_.cboComp2.SetListIndex(0);
    }
}

void Lifecycle::Form_Activate() {
    // The user can go on without the names.
    window_.session.windows.FromUser([this] { window_.staff.FillIfNeeded(); });
    window_.session.windows.FromUser([this] { window_.labels.FillIfNeeded(); });
    if (window_.state.startMode != kCardMode || window_.session.state.myTaskID < 1) return;
    window_.cards.cboComp2_LostFocus();
    if (window_.txtTitle2.Enabled()) window_.txtTitle2.SetFocus();
}

void Lifecycle::cmdExit_Click() {
    Session& session = window_.session;
    window_.options.SavePath();
    const auto saveIfChanged = [&](const forms::CheckBox& box, std::string_view key) {
        const std::string value = std::to_string(box.Value());
        if (value != box.tag) session.SaveSetting(resources::kTaskSection, key, value);
    };
    saveIfChanged(window_.chkJbr, "JbrName");
    saveIfChanged(window_.chkUser, "DlrName");
    window_.Unload();
}

void Lifecycle::CloseStoreIfLast() {
    const auto windows = window_.session.windows.Windows();
    const bool last = std::all_of(windows.begin(), windows.end(),
                                  [this](const forms::Form* one) { return one == &window_; });
    if (last) window_.session.database.Leave();
}

void Lifecycle::Form_Unload() {
    // A window that the user never saw takes nothing with it.
    if (!window_.WasSeen()) return CloseStoreIfLast();
    window_.session.database.Leave();
    ForgetChoices(window_.session.state);
    for (forms::Form* other : window_.session.windows.Windows()) {
        if (other != &window_) other->Unload();
    }
}

}  // namespace zv::mainwindow

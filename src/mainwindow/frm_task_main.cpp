#include "mainwindow/frm_task_main.h"

#include <array>

#include "mainwindow/icons.h"
#include "mainwindow/layout.h"

namespace zv::mainwindow {
namespace {

using forms::ComboStyle;

constexpr int kTimerPeriodMs = 60000;
constexpr int kTabs = 4;
constexpr std::size_t kEditorLabels = 14;

}  // namespace

frmTaskMain::frmTaskMain(forms::WindowSystem& windows, Session& owner)
    : Form(windows, std::string(kName)),
      session(owner),
      Timer1(*this, "Timer1", kTimerPeriodMs),
      fraTop(*this, "fraTop"),
      tvwTask(*this, "tvwTask"),
      cboOrder(*this, "cboOrder", nullptr, ComboStyle::ListOnly),
      chkEvent(*this, "chkEvent"),
      picImage(*this, "picImage"),
      fraItem(*this, "fraItem"),
      lblList2(*this, "lblList2", nullptr, 0),
      txtTitle2(*this, "txtTitle2", &fraItem),
      cboType2(*this, "cboType2", &fraItem, ComboStyle::ListOnly),
      DTPicker2(*this, "DTPicker2", &fraItem),
      cboDone2(*this, "cboDone2", &fraItem, ComboStyle::ListOnly),
      cboJbr2(*this, "cboJbr2", &fraItem, ComboStyle::FreeText),
      txtUser2(*this, "txtUser2", &fraItem),
      lblCardMemo(*this, "lblCardMemo", &fraItem),
      SSTab1(*this, "SSTab1", nullptr, kTabs),
      txtTaskCon(*this, "txtTaskCon", &SSTab1.Page(kItemTab)),
      picOther(*this, "picOther", &SSTab1.Page(kItemTab)),
      picOtherIn(*this, "picOtherIn", &picOther),
      lblOther(*this, "lblOther", &picOtherIn, kOtherFields),
      txtOther(*this, "txtOther", &picOtherIn, kOtherFields),
      lblNoFilter(*this, "lblNoFilter", &SSTab1.Page(kFilterTab)),
      fraB3(*this, "fraB3", &SSTab1.Page(kFilterTab)),
      chkType(*this, "chkType", &fraB3, kItemKinds),
      lblFilter(*this, "lblFilter", &fraB3, 9),
      DTPicker0(*this, "DTPicker0", &fraB3),
      DTPicker1(*this, "DTPicker1", &fraB3),
      txtTitle0(*this, "txtTitle0", &fraB3),
      txtContent0(*this, "txtContent0", &fraB3),
      txtJBR0(*this, "txtJBR0", &fraB3),
      chkJbr(*this, "chkJbr", &fraB3),
      txtUser0(*this, "txtUser0", &fraB3),
      chkUser(*this, "chkUser", &fraB3),
      txtName0(*this, "txtName0", &fraB3),
      txtComp(*this, "txtComp", &fraB3),
      cboState(*this, "cboState", &fraB3, ComboStyle::ListOnly),
      txtCompSeek(*this, "txtCompSeek", &SSTab1.Page(kCardTab)),
      cboComp2(*this, "cboComp2", &SSTab1.Page(kCardTab), ComboStyle::ListOnly),
      txtName2(*this, "txtName2", &SSTab1.Page(kCardTab)),
      txtAdd2(*this, "txtAdd2", &SSTab1.Page(kCardTab)),
      cboWay(*this, "cboWay", &SSTab1.Page(kCardTab), ComboStyle::FreeText),
      lblTel(*this, "lblTel", &SSTab1.Page(kCardTab), 4),
      txtTel(*this, "txtTel", &SSTab1.Page(kCardTab), 4),
      cmdTel(*this, "cmdTel", &SSTab1.Page(kCardTab)),
      lblEmail(*this, "lblEmail", &SSTab1.Page(kCardTab), 2),
      txtEmail(*this, "txtEmail", &SSTab1.Page(kCardTab), 2),
      cmdEmail(*this, "cmdEmail", &SSTab1.Page(kCardTab)),
      lblHttp(*this, "lblHttp", &SSTab1.Page(kCardTab), 2),
      txtHttp(*this, "txtHttp", &SSTab1.Page(kCardTab), 2),
      cmdHttp(*this, "cmdHttp", &SSTab1.Page(kCardTab)),
      chkBirthDay0(*this, "chkBirthDay0", &SSTab1.Page(kCardTab)),
      txtBirthDay0(*this, "txtBirthDay0", &SSTab1.Page(kCardTab)),
      lblDays(*this, "lblDays", &SSTab1.Page(kCardTab)),
      lblBirthDay(*this, "lblBirthDay", &SSTab1.Page(kCardTab)),
      Grid1(*this, "Grid1", &SSTab1.Page(kCardTab)),
      fraData(*this, "fraData", &SSTab1.Page(kOptionsTab)),
      optAccess(*this, "optAccess", &fraData),
      txtAccess(*this, "txtAccess", &fraData),
      cmdAccess(*this, "cmdAccess", &fraData),
      optSQL(*this, "optSQL", &fraData),
      fraAlert(*this, "fraAlert", &SSTab1.Page(kOptionsTab)),
      chkStartup(*this, "chkStartup", &fraAlert),
      chkBirthDay(*this, "chkBirthDay", &fraAlert),
      chkTimeSet(*this, "chkTimeSet", &fraAlert),
      txtTimeSet(*this, "txtTimeSet", &fraAlert),
      lblTimeSet(*this, "lblTimeSet", &fraAlert),
      fraStaff(*this, "fraStaff", &SSTab1.Page(kOptionsTab)),
      optJBR(*this, "optJBR", &fraStaff, 2),
      cmdAction(*this, "cmdAction", &fraTop, 4),
      cmdSave(*this, "cmdSave", &fraTop),
      cmdTaskOK(*this, "cmdTaskOK", &fraTop),
      cmdSeek(*this, "cmdSeek", &fraTop),
      cmdPrint(*this, "cmdPrint", &fraTop),
      cmdItemSet(*this, "cmdItemSet", &fraTop),
      cmdExit(*this, "cmdExit", &fraTop),
      menus(*this),
      captions(*this),
      labels(*this),
      staff(*this),
      otherFields(*this),
      cards(*this),
      birthdays(*this),
      cardSearch(*this),
      contacts(*this),
      pictureMenu(*this),
      editor(*this),
      saving(*this),
      actions(*this),
      plans(*this),
      filter(*this),
      list(*this),
      tree(*this),
      completion(*this),
      search(*this),
      printing(*this),
      options(*this),
      alerts(*this),
      lifecycle(*this) {
    forms::Control* const item = &SSTab1.Page(kItemTab);
    forms::Control* const card = &SSTab1.Page(kCardTab);
    const std::array<forms::Control*, kEditorLabels> places = {
        &fraItem, &fraItem, &fraItem, &fraItem, item, &fraItem, card,
        card,     card,     card,     &fraItem, card, nullptr,  item};
    for (forms::Control* place : places) lblList2.Append(*this, "lblList2", place);
    tvwTask.SetImageList(&TreeImages());
    DTPicker0.SetMayBeEmpty(true);
    DTPicker1.SetMayBeEmpty(true);
    DTPicker2.SetFormat(forms::DateFormat::DateTime);
    txtTaskCon.SetMultiLine(true);
    txtTimeSet.SetNumericKeyboard(true);
    txtUser2.SetLocked(true);
    txtAdd2.SetLocked(true);
    lblNoFilter.SetVisible(false);
    SetSizable(true);
    SetWindowSize(*this);
    Wire();
}

void frmTaskMain::Wire() {
    tvwTask.onNodeClick = [this](int node) { tree.tvwTask_NodeClick(node); };
    tvwTask.onKeyDown = [this](forms::KeyEvent& event) { tree.tvwTask_KeyDown(event); };
    tvwTask.mayRightClick = [this](int node) { return tree.MayRightClick(node); };
    tvwTask.onMouseDown = [this](const forms::MouseEvent& event) { tree.tvwTask_MouseDown(event); };
    chkEvent.onClick = [this] { tree.chkEvent_Click(); };
    cboOrder.onClick = [this] { tree.cboOrder_Click(); };
    cmdSeek.onClick = [this] { tree.cmdSeek_Click(); };
    for (int kind = 0; kind < kItemKinds; kind++) {
        chkType[kind].onClick = [this, kind] { tree.chkType_Click(kind); };
    }
    // On the filter page Enter searches, wherever the field does not use it itself.
    SSTab1.onClick = [this] {
        defaultButton = SSTab1.Tab() == kFilterTab ? &cmdSeek : nullptr;
        printing.UpdateButton();
    };
    filter.Wire();
    editor.Wire();
    completion.Wire();
    search.Wire();
    birthdays.Wire();
    cboComp2.onClick = [this] { cards.cboComp2_Click(); };
    cboComp2.onLostFocus = [this] { cards.cboComp2_LostFocus(); };
    cboComp2.onKeyDown = [this](forms::KeyEvent& event) { cards.cboComp2_KeyDown(event); };
    cboWay.onClick = [this] { cards.cboWay_Click(); };
    cboWay.onChange = [this] { cards.cboWay_Click(); };
    cardSearch.Wire();
    contacts.Wire();
    pictureMenu.Wire();
    otherFields.Wire();
    labels.Wire();
    printing.Wire();
    actions.Wire();
    plans.Wire();

    optAccess.onClick = [this] { options.optAccess_Click(); };
    optSQL.onClick = [this] { options.optSQL_Click(); };
    cmdAccess.onClick = [this] { options.cmdAccess_Click(); };
    txtAccess.onGotFocus = [this] { options.txtAccess_GotFocus(); };
    txtAccess.onLostFocus = [this] { options.txtAccess_LostFocus(); };
    for (std::int16_t i = 0; i < 2; i++) {
        optJBR[i].onClick = [this, i] { options.optJBR_Click(i); };
    }
    chkStartup.onClick = [this] { alerts.chkStartup_Click(); };
    chkBirthDay.onClick = [this] { alerts.chkBirthDay_Click(); };
    chkTimeSet.onClick = [this] { alerts.chkTimeSet_Click(); };
    txtTimeSet.onGotFocus = [this] { alerts.txtTimeSet_GotFocus(); };
    txtTimeSet.onKeyDown = [this](forms::KeyEvent& event) { alerts.txtTimeSet_KeyDown(event); };
    txtTimeSet.onLostFocus = [this] { alerts.txtTimeSet_LostFocus(); };
    Timer1.onTimer = [this] { alerts.Timer1_Timer(); };
    cmdExit.onClick = [this] { cmdExit_Click(); };

    WireMenus(*this);
}

void frmTaskMain::TaskAlert(std::int16_t mode) {
    if (!IsLoaded()) {
        state.startMode = mode;
        return;
    }
    if (state.Editing()) return;
    if (mode == state.startMode) {
        if (birthdays.ShownDay() == session.machine.clock.Today() || filter.UnfitText()) return;
        AllOrNothing([this] {
            if (lifecycle.FollowTheDay()) tree.chkEvent_Click();
        });
        return;
    }
    AllOrNothing([this, mode] {
        state.startMode = mode;
        lifecycle.Start();
    });
}

void frmTaskMain::AllOrNothing(const std::function<void()>& change) {
    const MainState before = state;
    const std::int32_t card = session.state.cardId;
    // What the controls tell while they are put back is forgotten last.
    const std::function<void()> undo[] = {Remember(), list.Remember(), editor.Remember(),
                                          filter.Remember(), birthdays.Remember()};
    try {
        change();
    } catch (...) {
        for (const auto& part : undo) part();
        state = before;
        session.state.cardId = card;
        throw;
    }
}

void frmTaskMain::FillFromNewStore() {
    options.LoadDatabase();
    // Numbers of the former store mean something else in this one.
    session.state.cardId = 0;
    cboComp2.SetItems({});
    cards.ClearCardDetail();
    labels.Forget();
    staff.Forget();
    if (WasSeen()) {
        staff.FillIfNeeded();
        labels.FillIfNeeded();
    }
    tree.chkEvent_Click();
    if (state.startMode == kCardMode) cards.LoadStartList();
    if (!chkBirthDay0.Checked()) return;
    chkBirthDay0.SetValue(0);
    chkBirthDay0.SetValue(1);
}

std::string frmTaskMain::getFilePath(std::int16_t kind, const std::string& filterText,
                                     const std::string& fileName, const std::string& dialogTitle,
                                     const std::string& folder) {
    forms::FileRequest request;
    request.flags =
        kind == 1 ? forms::FileRequest::kFileMustExist : forms::FileRequest::kPromptToCreate;
    request.filter = filterText;
    request.initialFile = fileName;
    request.title = dialogTitle;
    request.initialFolder = folder;
    try {
        return session.windows.ChooseFile(request).value_or("");
    } catch (const std::exception&) {
        // A dialog that fails is a dialog without a choice.
        return {};
    }
}

void frmTaskMain::cmdExit_Click() {
    lifecycle.cmdExit_Click();
}

void frmTaskMain::Form_Load() {
    try {
        lifecycle.Form_Load();
    } catch (...) {
        // Such a window is never unloaded.
        lifecycle.CloseStoreIfLast();
        throw;
    }
}

void frmTaskMain::Form_Activate() {
    lifecycle.Form_Activate();
}

void frmTaskMain::Form_Resize() {
    PlaceControls(*this);
}

void frmTaskMain::Form_Unload(bool&) {
    lifecycle.Form_Unload();
}

}  // namespace zv::mainwindow

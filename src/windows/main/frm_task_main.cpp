#include "windows/main/frm_task_main.h"

#include <algorithm>

#include "forms/layout/metrics.h"
#include "plans/plan_row.h"
#include "session/choose_file.h"

namespace zv::windows {
namespace {

constexpr int kTabs = 4;
constexpr forms::Size kStartSize{984, 648};
constexpr forms::Size kSmallestSize{836, 568};

OptionsPanel::Ports OptionPorts(frmTaskMain& window) {
    return {.editUnderWay = [&window] { return EditUnderWay(window.session); },
            .storeChanged = [&window] { ShowNewStore(window.session); },
            .staffSourceChanged =
                [&window](int source, bool byUser) {
                    window.staff.SetSource(source);
                    if (byUser) window.staff.FillIfNeeded();
                },
            .daysAhead = [&window] { return window.birthdays.DaysAhead(); },
            .showDaysAhead =
                [&window](const std::string& days) { window.birthdays.SetDaysAhead(days); }};
}

}  // namespace

frmTaskMain::frmTaskMain(forms::WindowSystem& windows, Session& owner)
    : Form(windows, std::string(kName)),
      session(owner),
      tree(*this, owner),
      item(*this, owner),
      SSTab1(*this, "SSTab1", nullptr, kTabs),
      content(*this, {SSTab1, kItemTab}, owner),
      filter(*this, {SSTab1, kFilterTab}, owner, model),
      cards(*this, {SSTab1, kCardTab}, owner),
      birthdays(*this, SSTab1.Page(kCardTab), owner),
      options(*this, {SSTab1, kOptionsTab}, owner, OptionPorts(*this)),
      commands(*this, owner, model),
      status(*this, owner),
      notice(*this, owner.takeBack),
      staff(owner, item),
      labels(owner, AllBoxes(item, content, cards)),
      view(owner, model, item, content, cards),
      selection(*this, owner, model, SSTab1, tree, commands, birthdays, view),
      listing(*this, owner, model, tree, filter, commands, view, selection),
      overview(*this, owner, model, tree, content, cards, status, view, listing),
      plans(*this, owner, model, commands, listing),
      editing(*this, owner, model, {SSTab1, tree, item, cards, commands, status},
              {labels, view, selection, listing, plans}),
      completion(*this, owner, model, tree, item, commands, view, selection),
      search(*this, owner, model, commands, labels, listing),
      printing(*this, owner, commands, birthdays, labels, view, listing),
      droppedInput(*this, owner, model, {SSTab1, tree, item, content, cards}, {view, selection}),
      keys(*this, owner, model, filter, commands, listing, completion, selection, view) {
    SetSizable(true);
    SetMinimumClientSize(kSmallestSize);
    SetClientSize(kStartSize);
    Wire();
}

void frmTaskMain::Wire() {
    // On the filter page Enter searches, wherever the field does not use it itself.
    SSTab1.onClick = [this] {
        defaultButton = SSTab1.Tab() == kFilterTab ? &commands.cmdSeek : nullptr;
        selection.UpdatePrint();
    };
    birthdays.onSwitched = [this](bool on) {
        commands.ShowFor(on);
        selection.UpdatePrint();
    };
    labels.onRead = [this] { PlaceControls(); };
    tree.onPictureMenu = [this](int x, int y) { PopupPictureMenu(x, y); };
    commands.menus.mnuImgClose.onClick = [this] { cmdExit_Click(); };
    commands.menus.mnuImgRestore.onClick = [this] {
        SetState(forms::WindowState::Normal);
        Show(false);
    };
    commands.cmdExit.onClick = [this] { cmdExit_Click(); };
    cancelButton = &commands.cmdExit;
    notice.onShown = [this] { PlaceLastLine(); };
    OrderTabs();
}

// What an entry usually needs, and then the button that stores it.
void frmTaskMain::OrderTabs() {
    SetTabOrder({&tree.tvwTask, &tree.cboOrder, &tree.chkEvent, &item.txtTitle2, &item.cboType2,
                 &item.DTPicker2, &item.cboJbr2, &content.txtTaskCon, &commands.cmdSave});
}

void frmTaskMain::PopupPictureMenu(int x, int y) {
    PopupMenu(commands.menus.mnuImg, x, y);
}

void frmTaskMain::PlaceControls() {
    using namespace forms::layout;
    const int width = ClientSize().width;
    const int bottom = ClientSize().height - kMargin - status.Height();
    PlaceLastLine();
    const int height = bottom;
    commands.Place({kMargin, kMargin, width - 2 * kMargin, commands.Height()});
    const int top = kMargin + commands.Height() + kMargin;
    const int treeWidth = std::clamp(width * 32 / 100, 260, 520);
    tree.Place({kMargin, top, treeWidth, height - top - kMargin});
    const int left = kMargin + treeWidth + TreePanel::kDivider;
    const int rightWidth = width - left - kMargin;
    item.Place({left, top, rightWidth, item.Height()});
    const int tabTop = top + item.Height() + kGap;
    SSTab1.Move({left, tabTop, rightWidth, height - tabTop - kMargin});
    const forms::Rect page = SSTab1.PageBounds();
    content.Place(page);
    filter.Place(page);
    cards.Place(page);
    birthdays.Place(page);
    options.Place(page);
}

void frmTaskMain::PlaceLastLine() {
    using namespace forms::layout;
    const Metrics m(Windows().GetBackend());
    const int top = ClientSize().height - kMargin - status.Height();
    const int width = ClientSize().width - 2 * kMargin;
    const int left = notice.Place({kMargin, top + m.LabelDrop(), width, m.Text()});
    status.Place({kMargin, top, left, status.Height()});
}

void frmTaskMain::TaskAlert(std::int16_t mode) {
    if (!IsLoaded()) {
        model.startMode = mode;
        return;
    }
    if (model.Editing()) return;
    if (mode == model.startMode) {
        if (birthdays.ShownDay() == session.machine.clock.Today() || filter.UnfitText()) return;
        AllOrNothing([this] {
            if (FollowTheDay()) listing.chkEvent_Click();
        });
        return;
    }
    AllOrNothing([this, mode] {
        model.startMode = mode;
        Start();
    });
}

bool frmTaskMain::AlertAgain() {
    if (model.Editing()) return false;
    FollowTheDay();
    listing.FillForHost();
    return model.startMode == kAlertMode && HasAlert();
}

bool frmTaskMain::HasAlert() const {
    constexpr int kNodesOfAnAlert = 4;
    return tree.Count() >= kNodesOfAnAlert;
}

void frmTaskMain::AllOrNothing(const std::function<void()>& change) {
    const MainState before = model;
    const std::int32_t card = session.state.cardId;
    // What the controls report while they are put back is forgotten last.
    const std::function<void()> undo[] = {Remember(),           listing.Remember(),
                                          view.Remember(),      filter.Remember(),
                                          birthdays.Remember(), overview.Remember()};
    try {
        change();
    } catch (...) {
        for (const auto& part : undo) part();
        model.Restore(before);
        session.state.cardId = card;
        throw;
    }
}

void frmTaskMain::ForgetStore() {
    // A window that is being loaded has read nothing yet, or reads on from the new store.
    if (!IsLoaded() || IsLoading()) return;
    session.state.cardId = 0;
    listing.Empty();
    cards.Empty();
    birthdays.Empty();
    labels.Forget();
    staff.Forget();
    session.takeBack.Forget(this);
}

void frmTaskMain::ShowStore() {
    options.LoadDatabase();
    if (WasSeen()) {
        staff.FillIfNeeded();
        labels.FillIfNeeded();
    }
    search.ShowCaptions();
    listing.FillFromNewStore();
    if (model.startMode == kCardMode) cards.LoadStartList();
    birthdays.FillAgain();
}

void frmTaskMain::ShowRows(const std::vector<changes::RowChange>& rows) {
    if (model.Editing()) return;
    listing.FillAgain();
    // What came back is what the user looks at next.
    const auto shown = std::find_if(rows.begin(), rows.end(), [this](const auto& change) {
        const ItemRef row{change.row, change.table == &plans::PlanTable()};
        return change.after && selection.Show(row);
    });
    if (shown != rows.end() && IsLoaded()) tree.FocusTree();
}

std::string frmTaskMain::getFilePath(std::int16_t kind, const std::string& filterText,
                                     const std::string& fileName, const std::string& dialogTitle,
                                     const std::string& folder) {
    return ChooseFile(session, kind, filterText, fileName, dialogTitle, folder);
}

bool frmTaskMain::MayLeave() {
    const auto windows = session.windows.Windows();
    const bool holds = std::any_of(windows.begin(), windows.end(), [](const forms::Form* window) {
        return window->IsShown() && window->HoldsUnsavedInput();
    });
    return !holds || session.windows.MayDropInput();
}

void frmTaskMain::cmdExit_Click() {
    if (!MayLeave() || !IsLoaded()) return;
    options.SavePath();
    filter.SaveOwnItems();
    Unload();
}

}  // namespace zv::windows

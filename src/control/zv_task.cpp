#include "control/zv_task.h"

#include "base/number.h"
#include "control/persistence.h"
#include "resources/design_texts.h"
#include "resources/error_texts.h"
#include "session/hand_over.h"
#include "session/marking.h"
#include "session/store_choice.h"
#include "windows/completion/frm_task_done.h"
#include "windows/generation/boxes.h"
#include "windows/main/frm_task_main.h"
#include "windows/plan_editor/frm_task_set.h"
#include "windows/remind/reminding.h"
#include "windows/staff/frm_list.h"

namespace zv {
namespace {

enum Mode : std::int16_t {
    kAlertPass = 0,
    kManager = 1,
    kPlanEditor = 2,
    kStaffList = 3,
    kMark = 4,
    kMarkOrAsk = 5,
    kAddInstance = 6,
    kAddInstanceOrAsk = 7,
    kCards = 9,
};

/// A cancel of the staff list that a host opens clears the picked name.
constexpr std::int16_t kActionOfAHost = 4;

/// Throws error 6 for a value outside the calendar, the years 100 to 9999.
DateTime ToDate(double automationDate) {
    const auto date = DateTime::InCalendar(automationDate);
    if (!date) throw RuntimeError(ErrorNumber::Overflow);
    return *date;
}

}  // namespace

ZvTask::ZvTask(Session& session) : session_(session) {}
void ZvTask::UserControl_InitProperties() {
    InitState(session_.state, session_.machine.files.ApplicationFolder());
}

void ZvTask::UserControl_ReadProperties(PropertyBag& bag) {
    ReadState(session_.state, bag);
}

void ZvTask::UserControl_WriteProperties(PropertyBag& bag) {
    WriteState(session_.state, bag);
}

void ZvTask::SetUserPath(store::ConnectionText path) {
    HostSetsPath(session_.state, std::move(path));
}

void ZvTask::SetSQLData(std::int16_t kind) {
    HostSetsKind(session_.state, kind);
}

void ZvTask::refresh(std::int32_t mode, std::int16_t modal) {
    session_.windows.FromHost([&] {
        session_.SetApplicationTitle();
        session_.TakeDataPath();
        ControlState& state = session_.state;
        if (state.UserPath.IsEmpty() && state.SQLData == 0) return;
        Connect(mode);
        state.showMode = modal;
        const std::string interval =
            session_.GetSetting(resources::kTaskSection, "TimeSetting", "0");
        if (number::ToDouble(interval) == 1) state.showMode = 0;
        Act(mode, modal != 0);
    });
}

void ZvTask::StartReminders() {
    HandOver(session_);
    Remind();
}

void ZvTask::Remind() {
    session_.windows.FromHost([&] {
        session_.SetApplicationTitle();
        session_.TakeDataPath();
        // Where nobody works with what is open, the first look opens what the properties name.
        if (!session_.windows.HasOpened() && !session_.FollowsProperties()) {
            session_.database.Leave();
        }
        Session& session = session_;
        windows::StartReminding(
            session_, [&session](const items::SavedItem& item) { ZvTask(session).ShowItem(item); });
    });
}

void ZvTask::StopReminders() {
    session_.windows.FromHost([&] { windows::StopReminding(session_); });
}

bool ZvTask::Reminding() const {
    return windows::IsReminding(session_);
}

void ZvTask::ShowItem(const items::SavedItem& item) {
    auto* window = session_.windows.Find<frmTaskMain>(frmTaskMain::kName);
    // One that the user works with stays as he has set it up.
    if (window && window->IsShown()) {
        window->Show(false);
    } else {
        OpenMainWindow(kManager, false);
        window = session_.windows.Find<frmTaskMain>(frmTaskMain::kName);
    }
    if (window && !window->model.Editing()) window->listing.Reveal(item);
}

void ZvTask::Connect(std::int32_t mode) {
    bool isNew = !session_.FollowsProperties();
    if (isNew && (session_.windows.HasModal() || EditUnderWay(session_))) {
        // It would act on a store that is not the one that the host means.
        if (mode >= kPlanEditor && mode <= kAddInstanceOrAsk) {
            throw RuntimeError(
                ErrorNumber::FormAlreadyShown,
                resources::LoadText(resources::DesignText::StoreInUse,
                                    resources::SpokenLanguage(session_.state.Language)));
        }
        isNew = false;
    }
    try {
        if (isNew)
            session_.database.OpenConnection(session_.Settings());
        else
            session_.database.EnsureConnection();
    } catch (const RuntimeError& error) {
        session_.windows.ShowMessage(
            forms::Inserted{resources::DescribeError(error, session_.state.Language)},
            forms::box::kExclamation, {}, &error);
        throw;
    }
    if (isNew) ShowNewStore(session_);
}

void ZvTask::Act(std::int32_t mode, bool modal) {
    switch (mode) {
        case kAlertPass:
            RunAlertPass();
            break;
        case kManager:
            OpenMainWindow(kManager, modal);
            break;
        case kPlanEditor:
            windows::ShowPlanEditor(session_, 0, modal);
            break;
        case kStaffList:
            windows::ShowStaffList(session_, kActionOfAHost, modal);
            break;
        case kMark:
            MarkDirectly();
            break;
        case kMarkOrAsk:
            if (!MarkDirectly()) {
                windows::ShowTaskDone(session_, windows::frmTaskDone::kCompleteItem, modal);
            }
            break;
        case kAddInstance:
            AddInstance();
            break;
        case kAddInstanceOrAsk:
            if (!AddInstance()) {
                windows::ShowTaskDone(session_, windows::frmTaskDone::kAddItem, modal);
            }
            break;
        case kCards:
            OpenMainWindow(kCards, modal);
            break;
        default:
            break;
    }
}

void ZvTask::RunAlertPass() {
    const bool modal = session_.state.showMode != 0;
    auto* window = session_.windows.Find<frmTaskMain>(frmTaskMain::kName);
    if (window && window->IsShown()) {
        // A window that the user works with is never closed by an alert pass.
        if (window->AlertAgain()) {
            window->Show(false);
            AnnounceAlert(*window);
        }
        return;
    }
    // One pass is enough: a box of another one stands, or it would be shown.
    if (window && window->IsLoading()) return;
    // One that was loaded for something else and never shown is not the user's.
    if (window) window->Unload();
    session_.windows.OpenIf<frmTaskMain>(
        modal, [](frmTaskMain& made) { made.TaskAlert(windows::kAlertMode); },
        [this](const frmTaskMain& made) {
            if (!made.HasAlert()) return false;
            AnnounceAlert(made);
            return true;
        },
        session_);
}

void ZvTask::AnnounceAlert(const frmTaskMain& window) {
    session_.Announce([items = window.ItemsShown()](HostEvents& host) { host.AlertShown(items); });
}

void ZvTask::OpenMainWindow(std::int16_t mode, bool modal) {
    session_.windows.Open<frmTaskMain>(
        modal, [mode](frmTaskMain& window) { window.TaskAlert(mode); }, session_);
}

bool ZvTask::MarkDirectly() {
    const ControlState& state = session_.state;
    const std::int16_t item = number::ToInt16(static_cast<double>(state.myTaskID));
    // Without an item myDate may be anything: a date that a call before needed, for example.
    if (item == 0) return false;
    const std::int16_t flag = number::ToInt16(state.myDate.value_or(0));
    return MarkForHost(session_, {item, flag, state.UserName}) != Marking::NoItem;
}

bool ZvTask::AddInstance() {
    const ControlState& state = session_.state;
    const std::int16_t plan = number::ToInt16(static_cast<double>(state.myTaskID));
    const DateTime date = ToDate(state.myDate.value_or(0));
    return windows::AddTaskInstance(session_, plan, date);
}

}  // namespace zv

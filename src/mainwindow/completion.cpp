#include "mainwindow/completion.h"

#include <string>

#include "base/text.h"
#include "mainwindow/frm_task_main.h"
#include "mainwindow/rights.h"
#include "resources/text_ids.h"
#include "scheduling/task_generation.h"

namespace zv::mainwindow {
namespace {

constexpr std::int16_t kCompletionRight = 4;

constexpr char kDoneDigit = '4';
constexpr char kInHandDigit = '3';

// The caption of the menu entry ends in its access key: a blank, an ampersand and a letter.
constexpr std::size_t kAccessKeyLength = 3;

std::string WithoutAccessKey(const std::string& caption) {
    const std::size_t length = text::Length(caption);
    return text::Left(caption, length < kAccessKeyLength ? 0 : length - kAccessKeyLength);
}

}  // namespace

void Completion::Wire() {
    MainMenus& menus = window_.menus;
    for (auto* entries : {&menus.mnuTaskDone, &menus.mnuGuestDone, &menus.mnuDailyDone}) {
        for (forms::MenuItem& entry : *entries) {
            entry.onClick = [this, &entry] {
                SetItemState(static_cast<std::int16_t>(entry.Index()));
            };
        }
    }
    menus.mnuTaskDoneOk.onClick = [this] { SetItemState(0); };
    menus.mnuTaskDoing.onClick = [this] { SetItemState(1); };
    menus.mnuEventDone.onClick = [this] { mnuEventDone_Click(); };
    window_.cmdTaskOK.onClick = [this] { cmdTaskOK_Click(); };
    window_.cmdTaskOK.onMouseDown = [this](const forms::MouseEvent& event) {
        cmdTaskOK_MouseDown(event);
    };
}

// The menus can be opened at any time: a plan's number must not be taken for an item's, nor what
// the editor shows of another item, or of a new one, for the item that is selected.
bool Completion::ShowsStoredItem() const {
    const MainState& state = window_.state;
    const bool loaded = state.currentItemId == 0 ||
                        window_.tvwTask.tag == "Z" + std::to_string(state.currentItemId);
    return loaded && state.currentType != kPlan && state.editMode != kAdding &&
           state.openedFor != kAdding;
}

void Completion::SetItemState(std::int16_t mode) {
    const int newState = mode == 0 ? kDone : kInHand;
    if (!ShowsStoredItem() || window_.cboDone2.ListIndex() == newState) return;
    Session& session = window_.session;
    const NamedItem item(window_);
    const std::string doer = session.state.UserName;
    const std::string title = " [" + window_.txtTitle2.Text() + "] ?";
    const std::string question =
        newState == kDone ? session.LoadText(text_id::kConfirmDone) + title
                          : WithoutAccessKey(window_.menus.mnuTaskDoing.Caption()) + ":" + title;
    if (session.windows.ShowMessage(question, forms::box::kOkCancel + forms::box::kQuestion) ==
        forms::Answer::Cancel) {
        return;
    }
    session.EnsureConnection();
    if (session.database.MarkItem(item.Number(), static_cast<std::int16_t>(newState), doer) != 1) {
        return;
    }
    if (session.database.ChangedNothing()) {
        // Somebody else has deleted the item: there is nothing that could be shown as done.
        session.windows.ShowMessage(session.LoadText(text_id::kItemNotFound),
                                    forms::box::kExclamation);
        return;
    }
    ShowAsMarked(item, newState, doer);
}

void Completion::ShowAsMarked(const NamedItem& item, int newState, const std::string& doer) {
    if (!window_.IsLoaded()) return;
    SetNodeState(item, newState == kDone ? kDoneDigit : kInHandDigit);
    // The editor may show something else by now.
    if (!item.IsCurrent(window_)) return;
    window_.cboDone2.SetListIndex(newState);
    // A later change stores what the box shows; who is typing a name keeps it.
    if (!window_.state.Editing()) window_.cboJbr2.SetText(doer);
    window_.editor.NoteStored("tDone", newState);
    window_.editor.NoteStored("tDoneMan", doer);
}

void Completion::SetNodeState(const NamedItem& item, char stateDigit) {
    forms::TreeView& tree = window_.tvwTask;
    const int node = item.Node(window_);
    if (node == forms::TreeView::kNone) return;
    std::string image = tree.Image(node);
    image.back() = stateDigit;
    tree.SetImage(node, image);
}

void Completion::cmdTaskOK_Click() {
    const NamedItem item(window_);
    if (HasRightToItems(window_, kCompletionRight) && item.MakeCurrent(window_)) SetItemState(0);
}

void Completion::cmdTaskOK_MouseDown(const forms::MouseEvent& event) {
    if (event.button != forms::MouseButton::Right) return;
    const NamedItem item(window_);
    if (!HasRight(window_, "mnuZjComp", kCompletionRight)) return;
    if (!item.MakeCurrent(window_) || !window_.IsLoaded()) return;
    const forms::Rect& bar = window_.fraTop.Bounds();
    const forms::Rect& button = window_.cmdTaskOK.Bounds();
    window_.PopupMenu(window_.menus.mnuDone, bar.left + button.left, bar.top + button.Bottom(),
                      [&] { return item.MakeCurrent(window_); });
}

void Completion::mnuEventDone_Click() {
    const NamedItem plan(window_);
    // Without a selected plan the engine would take free items for those of a plan.
    if (!plan.IsPlan() || plan.Number() == 0) return;
    scheduling::GenerateTaskList(window_.session, std::to_string(plan.Number()));
    if (window_.IsLoaded()) SetNodeState(plan, kDoneDigit);
}

}  // namespace zv::mainwindow

#include "windows/main/acts/completion.h"

#include "base/text.h"
#include "forms/form.h"
#include "resources/text_ids.h"
#include "session/marking.h"
#include "windows/generation/boxes.h"
#include "windows/main/acts/rights.h"

namespace zv::windows {
namespace {

using items::ItemState;
namespace field = items::field;

constexpr std::int16_t kCompletionRight = 4;

// The caption of the menu entry ends in three dots.
std::string WithoutDots(const std::string& caption) {
    constexpr std::size_t kDots = 3;
    const std::size_t length = text::Length(caption);
    return text::Left(caption, length < kDots ? 0 : length - kDots);
}

}  // namespace

Completion::Completion(forms::Form& form, Session& session, MainModel& model, TreePanel& tree,
                       ItemPanel& head, CommandPanel& commands, ItemView& view,
                       Selection& selection)
    : form_(form),
      session_(session),
      model_(model),
      tree_(tree),
      head_(head),
      commands_(commands),
      view_(view),
      selection_(selection) {
    Wire();
}

void Completion::Wire() {
    MainMenus& menus = commands_.menus;
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
    commands_.cmdTaskOK.onClick = [this] { cmdTaskOK_Click(); };
    commands_.cmdTaskOK.onMouseDown = [this](const forms::MouseEvent& event) {
        cmdTaskOK_MouseDown(event);
    };
}

std::string Completion::Question(ItemState state) const {
    const std::string title = " [" + view_.Values().Text(field::kTitle) + "] ?";
    if (state == ItemState::Done) return session_.LoadText(text_id::kConfirmDone) + title;
    return WithoutDots(commands_.menus.mnuTaskDoing.Caption()) + ":" + title;
}

void Completion::SetItemState(std::int16_t mode) {
    const ItemState state = mode == 0 ? ItemState::Done : ItemState::InHand;
    // The menus can be opened at any time: a plan's number must not be taken for an item's, nor
    // what the editor shows of another item, or of a new one, for the item that is selected.
    const bool shown = view_.Values().Row(field::kState) == Number(state);
    if (!selection_.ShowsStoredItem() || shown) return;
    const ItemRef item = model_.Current();
    const std::string doer = session_.state.UserName;
    if (session_.windows.ShowMessage(Question(state),
                                     forms::box::kOkCancel + forms::box::kQuestion) ==
        forms::Answer::Cancel) {
        return;
    }
    MarkRequest request = Request(item.number, state, doer);
    request.title = view_.Values().Text(field::kTitle);
    if (const auto& row = view_.RowAsRead()) {
        request.before = StateAndDoer((*row)[field::kState], (*row)[field::kDoer]);
    }
    const Marking marking = MarkItem(session_, std::move(request));
    if (marking == Marking::NoItem) return;
    if (marking == Marking::Gone) {
        // Somebody else has deleted it: there is nothing that could be shown as done.
        session_.windows.ShowMessage(session_.LoadText(text_id::kItemNotFound),
                                     forms::box::kExclamation);
        return;
    }
    ShowAsMarked(item, state, doer);
    // The next item is reached from here; who is typing goes on.
    if (form_.IsLoaded() && !model_.Editing()) tree_.FocusTree();
}

void Completion::ShowAsMarked(const ItemRef& item, ItemState state, const std::string& doer) {
    if (!form_.IsLoaded()) return;
    ShowState(item, state);
    // The editor may show something else by now.
    if (!selection_.IsCurrent(item)) return;
    head_.cboDone2.SetListIndex(Number(state));
    // A later change stores what the box shows; who is typing a name keeps it.
    if (!model_.Editing()) head_.cboJbr2.SetText(doer);
    view_.NoteStored(field::kState, Number(state));
    view_.NoteStored(field::kDoer, doer);
}

void Completion::ShowState(const ItemRef& item, ItemState state) {
    if (const int node = tree_.Find(item); node != TreePanel::kNone) tree_.ShowState(node, state);
}

void Completion::cmdTaskOK_Click() {
    const ItemRef item = model_.Current();
    if (!HasRightToItems(session_, model_, kCompletionRight)) return;
    if (selection_.MakeCurrent(item)) SetItemState(0);
}

void Completion::cmdTaskOK_MouseDown(const forms::MouseEvent& event) {
    if (event.button != forms::MouseButton::Right) return;
    const ItemRef item = model_.Current();
    if (!HasRight(session_, "mnuZjComp", kCompletionRight)) return;
    if (!selection_.MakeCurrent(item) || !form_.IsLoaded()) return;
    const forms::Position at = commands_.Below(commands_.cmdTaskOK);
    form_.PopupMenu(commands_.menus.mnuDone, at.x, at.y,
                    [&] { return selection_.MakeCurrent(item); });
}

void Completion::StartInHand() {
    const ItemRef item = model_.Current();
    if (!HasRight(session_, "mnuZjComp", kCompletionRight)) return;
    if (selection_.MakeCurrent(item)) SetItemState(1);
}

bool Completion::MayStartInHand() const {
    return commands_.cmdTaskOK.CanInteract() && commands_.menus.mnuTaskDoing.Enabled();
}

void Completion::mnuEventDone_Click() {
    const ItemRef plan = model_.Current();
    // Without a selected plan the engine would take free items for those of a plan.
    if (!plan.plan || plan.number == 0) return;
    GenerateTaskList(session_, std::to_string(plan.number));
    if (form_.IsLoaded()) ShowState(plan, ItemState::Done);
}

}  // namespace zv::windows

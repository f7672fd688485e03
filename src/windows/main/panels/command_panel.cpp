#include "windows/main/panels/command_panel.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "forms/form.h"
#include "forms/layout/metrics.h"
#include "resources/fixed_texts.h"
#include "resources/text_ids.h"

namespace zv::windows {
namespace {

using items::ItemState;
using resources::DesignText;

constexpr std::string_view kExitPrefix = "\u00d7 ";

/// "Task(&T)" without its access key.
std::string WithoutAccessKey(std::string caption) {
    if (const auto at = caption.find("(&"); at != std::string::npos) caption.erase(at);
    std::erase(caption, '&');
    return caption;
}

const forms::MenuItem& MenuOf(const MainMenus& menus, items::ItemKind kind) {
    switch (kind) {
        case items::ItemKind::Guest:
            return menus.mnuGuest;
        case items::ItemKind::Diary:
            return menus.mnuDaily;
        default:
            return menus.mnuTask;
    }
}

}  // namespace

CommandPanel::CommandPanel(forms::Form& form, Session& session, MainModel& model)
    : form_(form),
      session_(session),
      model_(model),
      fraTop(form, "fraTop"),
      cmdAction(form, "cmdAction", &fraTop, 4),
      cmdSave(form, "cmdSave", &fraTop),
      cmdTaskOK(form, "cmdTaskOK", &fraTop),
      cmdSeek(form, "cmdSeek", &fraTop),
      cmdPrint(form, "cmdPrint", &fraTop),
      cmdItemSet(form, "cmdItemSet", &fraTop),
      cmdExit(form, "cmdExit", &fraTop),
      menus(form) {
    model_.OnEdit([this] { ShowEdit(); });
}

void CommandPanel::SetCaptions() {
    cmdAction[0].SetCaption(session_.LoadText(DesignText::ButtonCancel));
    cmdAction[1].SetCaption(session_.LoadText(DesignText::ButtonAdd));
    cmdAction[2].SetCaption(session_.LoadText(DesignText::ButtonChange));
    cmdAction[3].SetCaption(session_.LoadText(DesignText::ButtonDelete));
    cmdSave.SetCaption(session_.LoadText(DesignText::ButtonSave));
    cmdTaskOK.SetCaption(session_.LoadText(DesignText::ButtonDone));
    cmdSeek.SetCaption(session_.LoadText(DesignText::ButtonSearch));
    cmdPrint.SetCaption(session_.LoadText(DesignText::ButtonPrint));
    cmdItemSet.SetCaption(session_.LoadText(DesignText::ButtonLayout));
    menus.SetCaptions(session_);
}

void CommandPanel::SetStartCaptions() {
    cmdExit.SetCaption(std::string(kExitPrefix) + session_.LoadText(text_id::kLeave));
    cmdExit.SetAccessKey('X');
    menus.SetStartCaptions(session_);
}

int CommandPanel::Height() const {
    return forms::layout::Metrics(form_.Windows().GetBackend()).Button();
}

// What vanishes while the birthdays are listed stands together at one end, what stays at the other:
// nothing moves and no hole opens.
void CommandPanel::Place(const forms::Rect& area) {
    using namespace forms::layout;
    fraTop.Move(area);
    // All buttons stay in sight of a window that is narrow: they come closer together.
    constexpr Spacing kNarrow{kGap / 2, 2 * kGap, 60, 14};
    const Metrics usual(form_.Windows().GetBackend());
    if (PlaceButtons(usual, kGroupGap, area.width)) return;
    PlaceButtons(Metrics(form_.Windows().GetBackend(), kNarrow), kGroupGap / 2, area.width);
}

// False: they have no room.
bool CommandPanel::PlaceButtons(const forms::layout::Metrics& m, int groupGap, int room) {
    using Group = std::vector<forms::CommandButton*>;
    const auto widthOf = [&](forms::CommandButton* button) {
        return button == &cmdSave ? SaveWidth(m) : m.ButtonWidth(*button);
    };
    const auto place = [&](int x, std::initializer_list<Group> groups) {
        for (const Group& group : groups) {
            for (forms::CommandButton* button : group) {
                const int width = widthOf(button);
                button->Move({x, 0, width, m.Button()});
                x += width + m.Gap();
            }
            x += groupGap - m.Gap();
        }
        return x;
    };
    const std::initializer_list<Group> staying = {
        {&cmdSave, &cmdAction[0]}, {&cmdPrint, &cmdItemSet}, {&cmdExit}};
    const int left =
        place(0, {{&cmdAction[1], &cmdAction[2], &cmdAction[3]}, {&cmdTaskOK}, {&cmdSeek}});
    const int needed = place(0, staying) - groupGap;
    place(std::max(left, room - needed), staying);
    return left + needed <= room;
}

// Wide enough for every caption that the button takes.
int CommandPanel::SaveWidth(const forms::layout::Metrics& m) const {
    int width = m.ButtonWidth(cmdSave.Caption());
    for (const items::ItemKind kind : items::kItemKinds) {
        width = std::max(width, m.ButtonWidth(SaveCaption(kind, EditMode::Adding)));
    }
    return width;
}

std::string CommandPanel::SaveCaption(items::ItemKind kind, EditMode mode) const {
    return WithoutAccessKey(MenuOf(menus, kind).Caption()) +
           (mode == EditMode::Adding ? resources::fixed::kAdded : resources::fixed::kChanged);
}

void CommandPanel::ShowEdit() {
    const bool open = model_.openedFor != EditMode::None;
    cmdSave.SetEnabled(open);
    EnableCancel();
    cmdSave.SetCaption(open ? SaveCaption(model_.editedKind, model_.openedFor)
                            : session_.LoadText(DesignText::ButtonSave));
}

void CommandPanel::EnableActs(bool anyNode) {
    anyNode_ = anyNode;
    cmdAction[3].SetEnabled(anyNode);
    EnableCancel();
}

void CommandPanel::EnableCancel() {
    cmdAction[0].SetEnabled(anyNode_ || model_.Editing());
}

void CommandPanel::ShowFor(bool reminder) {
    cmdSeek.SetVisible(!reminder);
    for (int action = 1; action <= 3; action++) cmdAction[action].SetVisible(!reminder);
    cmdTaskOK.SetVisible(!reminder);
}

void CommandPanel::EnableFor(std::optional<ItemState> state) {
    const bool notDone = state == ItemState::NotDone;
    const bool open = notDone || state == ItemState::InHand;
    cmdTaskOK.SetEnabled(open);
    if (!state) return;
    menus.mnuTaskDoing.SetEnabled(notDone);
    menus.mnuTaskDoneOk.SetEnabled(open);
}

forms::Position CommandPanel::Below(const forms::CommandButton& button) const {
    return {fraTop.Bounds().left + button.Bounds().left,
            fraTop.Bounds().top + button.Bounds().Bottom()};
}

}  // namespace zv::windows

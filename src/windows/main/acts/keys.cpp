#include "windows/main/acts/keys.h"

#include "forms/form.h"
#include "items/item_row.h"
#include "plans/plan_row.h"
#include "session/key_list.h"
#include "windows/history/frm_history.h"
#include "windows/main/acts/rights.h"

namespace zv::windows {
namespace {

using forms::KeyChord;
using resources::KeyText;
namespace key = forms::key;

constexpr KeyChord kAdd{'N', true};
constexpr KeyChord kChange{key::kF2};
constexpr KeyChord kDelete{key::kDelete};
constexpr KeyChord kSave{'S', true};
constexpr KeyChord kSaveToo{key::kEnter, true};
constexpr KeyChord kDone{'D', true};
constexpr KeyChord kInHand{'H', true};
constexpr KeyChord kReadAgain{key::kF5};
constexpr KeyChord kFind{'F', true};
constexpr KeyChord kPrint{'P', true};
constexpr KeyChord kTakeBack{'Z', true};
constexpr KeyChord kDoAgain{'Y', true};
constexpr KeyChord kHistory{key::kF7};
constexpr KeyChord kThisList{key::kF1};

}  // namespace

Keys::Keys(forms::Form& form, Session& session, const MainModel& model, FilterPanel& filter,
           CommandPanel& commands, Listing& listing, Completion& completion,
           const Selection& selection, const ItemView& view)
    : form_(form),
      session_(session),
      model_(model),
      filter_(filter),
      commands_(commands),
      listing_(listing),
      completion_(completion),
      selection_(selection),
      view_(view) {
    Wire();
    ShowInMenus();
}

void Keys::Wire() {
    forms::Shortcuts& keys = form_.shortcuts;
    keys.Press(kAdd, commands_.cmdAction[1]);
    keys.Press(kChange, commands_.cmdAction[2]);
    keys.Press(kDelete, commands_.cmdAction[3]);
    keys.Press(kSave, commands_.cmdSave);
    keys.Press(kSaveToo, commands_.cmdSave);
    // While an item is edited its caption says what it does, and has no room for a letter.
    keys.PressByLetter('S', commands_.cmdSave);
    keys.Press(kDone, commands_.cmdTaskOK);
    keys.Press(kPrint, commands_.cmdPrint);
    keys.Do(
        kInHand, [this] { completion_.StartInHand(); },
        [this] { return completion_.MayStartInHand(); });
    // As the button does, but the user stays where he is.
    keys.Do(
        kReadAgain, [this] { listing_.FillAgain(); },
        [this] { return commands_.cmdSeek.CanInteract(); });
    keys.Do(kFind, [this] { filter_.FocusFirst(); });
    keys.Do(
        kTakeBack, [this] { session_.takeBack.TakeNewest(); }, [this] { return CanTakeBack(); });
    keys.Do(
        kDoAgain, [this] { session_.takeBack.DoAgain(); },
        [this] { return !model_.Editing() && session_.acts.CanDoAgain(); });
    keys.Do(kHistory, [this] { ShowHistoryOfCurrent(); });
    keys.Do(kThisList, [this] { ShowList(); });
}

bool Keys::CanTakeBack() const {
    // Who types means the field, but for input that gave way to what he is typing in.
    return session_.takeBack.NewestIsOf(&form_) ||
           (!model_.Editing() && session_.acts.CanTakeBack());
}

void Keys::ShowHistoryOfCurrent() {
    frmHistory::Subject subject;
    const ItemRef item = model_.Current();
    if (item.number != 0 && model_.openedFor != EditMode::Adding) {
        subject = {item.plan ? &plans::PlanTable() : &items::ItemTable(), item.number,
                   view_.StoredTitle()};
    }
    constexpr auto kDeleteRight = static_cast<std::int16_t>(EditMode::Deleting);
    ShowHistory(session_, std::move(subject),
                [this] { return HasRightToItems(session_, model_, kDeleteRight); });
}

void Keys::ShowInMenus() {
    MainMenus& m = commands_.menus;
    const auto name = [](std::initializer_list<forms::MenuItem*> entries, const KeyChord& chord) {
        for (forms::MenuItem* entry : entries) entry->SetShortcut(NameOf(chord));
    };
    name({&m.mnuTaskAdd, &m.mnuGuestAdd, &m.mnuDailyAdd, &m.mnuEventAdd}, kAdd);
    name({&m.mnuTaskChg, &m.mnuGuestChg, &m.mnuDailyChg, &m.mnuEventChg}, kChange);
    name({&m.mnuTaskDel, &m.mnuGuestDel, &m.mnuDailyDel, &m.mnuEventDel}, kDelete);
    name({m.mnuTaskDone.data(), m.mnuGuestDone.data(), m.mnuDailyDone.data(), &m.mnuTaskDoneOk},
         kDone);
    name({&m.mnuTaskDone[1], &m.mnuGuestDone[1], &m.mnuDailyDone[1], &m.mnuTaskDoing}, kInHand);
    name({&m.mnuSeek1}, kReadAgain);
    name({&m.mnuPrintItem}, kPrint);
}

void Keys::ShowToolTips() {
    const auto tip = [this](forms::CommandButton& button, KeyText text, const KeyChord& chord) {
        button.SetToolTip(session_.LoadText(text) + " (" + NameOf(chord) + ")");
    };
    tip(commands_.cmdAction[1], KeyText::Add, kAdd);
    tip(commands_.cmdAction[2], KeyText::Change, kChange);
    tip(commands_.cmdAction[3], KeyText::Delete, kDelete);
    tip(commands_.cmdSave, KeyText::Save, kSave);
    tip(commands_.cmdTaskOK, KeyText::Done, kDone);
    tip(commands_.cmdSeek, KeyText::ReadAgain, kReadAgain);
    tip(commands_.cmdPrint, KeyText::Print, kPrint);
    tip(commands_.cmdExit, KeyText::Leave, {key::kEscape});
}

void Keys::ShowList() {
    ShowKeyList(session_, {{{kAdd}, KeyText::Add},
                           {{kChange}, KeyText::Change},
                           {{kDelete}, KeyText::Delete},
                           {{kSave, kSaveToo}, KeyText::Save},
                           {{kDone}, KeyText::Done},
                           {{kInHand}, KeyText::InHand},
                           {{kReadAgain}, KeyText::ReadAgain},
                           {{kFind}, KeyText::Find},
                           {{kPrint}, KeyText::Print},
                           {{kTakeBack}, KeyText::TakeBack},
                           {{kDoAgain}, KeyText::DoAgain},
                           {{kHistory}, KeyText::History},
                           {{{key::kMenu}, {key::kF10, false, true}}, KeyText::NodeMenu},
                           {{{key::kTab, true}}, KeyText::NextPage},
                           {{{key::kEscape}}, KeyText::Leave},
                           {{kThisList}, KeyText::ThisList}});
}

}  // namespace zv::windows

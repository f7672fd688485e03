#include "windows/main/acts/dropped_input.h"

#include <array>
#include <utility>

#include "forms/form.h"
#include "resources/key_texts.h"

namespace zv::windows {

DroppedInput::DroppedInput(forms::Form& form, Session& session, MainModel& model,
                           const Panels& panels, const Acts& acts)
    : form_(form), session_(session), model_(model), panels_(panels), acts_(acts) {
    acts_.view.onInputDropped = [this] { Keep(); };
}

void DroppedInput::Keep() {
    Edit edit{acts_.view.StateOfInput(), session_.state.cardId, {}};
    edit.boxes = [parts = std::array{panels_.head.Remember(), panels_.content.Remember(),
                                     panels_.cards.Remember(), acts_.view.Remember()}] {
        for (const auto& part : parts) part();
    };
    const std::string title = acts_.view.Values().Text(items::field::kTitle);
    session_.takeBack.Add(&form_, session_.LoadText(resources::KeyText::PutAside, title),
                          [this, edit = std::move(edit)] { return Restore(edit); });
}

bool DroppedInput::Restore(const Edit& edit) {
    if (!form_.IsLoaded()) return false;
    if (panels_.tree.WantsPlans()) {
        panels_.tree.Want(false);
        // The list could not be filled.
        if (panels_.tree.WantsPlans()) return false;
    }
    // What is being typed now gives way, and is kept in its turn.
    acts_.view.DropInput();
    const std::int16_t startMode = model_.startMode;
    model_.Restore(edit.state);
    model_.startMode = startMode;
    // A new item needs none; one that is changed need not be listed.
    const bool adds = edit.state.openedFor == EditMode::Adding;
    if (adds && panels_.tree.Find(model_.Current()) == TreePanel::kNone) model_.currentId = 0;
    acts_.view.ShowFor(false);
    panels_.tabs.SetTab(edit.state.editedKind == items::ItemKind::Guest ? kCardTab : kItemTab);
    edit.boxes();
    session_.state.cardId = edit.card;
    model_.OpenEditor(edit.state.editedKind, edit.state.openedFor);
    acts_.selection.Mark(model_.Current());
    panels_.head.FocusTitle();
    return true;
}

}  // namespace zv::windows

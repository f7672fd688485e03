#include "windows/main/acts/dropped_input.h"

#include <array>
#include <utility>

#include "forms/form.h"
#include "resources/key_texts.h"

namespace zv::windows {

DroppedInput::DroppedInput(forms::Form& form, Session& session, MainModel& model,
                           forms::TabPanel& tabs, TreePanel& tree, ItemPanel& head,
                           ContentPanel& content, CardPanel& cards, ItemView& view,
                           Selection& selection, TakeBack& takeBack)
    : form_(form),
      session_(session),
      model_(model),
      tabs_(tabs),
      tree_(tree),
      head_(head),
      content_(content),
      cards_(cards),
      view_(view),
      selection_(selection),
      takeBack_(takeBack) {
    view_.onInputDropped = [this] { Keep(); };
}

void DroppedInput::Keep() {
    Edit edit{view_.StateOfInput(), session_.state.cardId, {}};
    edit.boxes = [parts = std::array{head_.Remember(), content_.Remember(), cards_.Remember(),
                                     view_.Remember()}] {
        for (const auto& part : parts) part();
    };
    const std::string title = view_.Values().Text(items::field::kTitle);
    takeBack_.Add(session_.LoadText(resources::KeyText::PutAside, title),
                  [this, edit = std::move(edit)] { return Restore(edit); });
}

bool DroppedInput::Restore(const Edit& edit) {
    if (!form_.IsLoaded()) return false;
    if (tree_.WantsPlans()) {
        tree_.Want(false);
        // The list could not be filled.
        if (tree_.WantsPlans()) return false;
    }
    // What is being typed now gives way, and is kept in its turn.
    view_.DropInput();
    const std::int16_t startMode = model_.startMode;
    model_.Restore(edit.state);
    model_.startMode = startMode;
    // A new item needs none; one that is changed need not be listed.
    const bool adds = edit.state.openedFor == EditMode::Adding;
    if (adds && tree_.Find(model_.Current()) == TreePanel::kNone) model_.currentId = 0;
    view_.ShowFor(false);
    tabs_.SetTab(edit.state.editedKind == items::ItemKind::Guest ? kCardTab : kItemTab);
    edit.boxes();
    session_.state.cardId = edit.card;
    model_.OpenEditor(edit.state.editedKind, edit.state.openedFor);
    selection_.Mark(model_.Current());
    head_.FocusTitle();
    return true;
}

}  // namespace zv::windows

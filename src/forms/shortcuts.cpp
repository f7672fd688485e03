#include "forms/shortcuts.h"

#include <algorithm>

#include "forms/buttons.h"

namespace zv::forms {

void Shortcuts::Press(KeyChord chord, CommandButton& button) {
    entries_.push_back({chord, &button, {}, {}});
}

void Shortcuts::PressByLetter(char letter, CommandButton& button) {
    letters_.emplace_back(letter, &button);
}

void Shortcuts::Do(KeyChord chord, std::function<void()> act, std::function<bool()> allowed) {
    entries_.push_back({chord, nullptr, std::move(act), std::move(allowed)});
}

const Shortcuts::Entry* Shortcuts::Find(KeyChord chord) const {
    const auto at = std::find_if(entries_.begin(), entries_.end(),
                                 [&](const Entry& entry) { return entry.chord == chord; });
    return at == entries_.end() ? nullptr : &*at;
}

CommandButton* Shortcuts::ByLetter(char32_t letter) const {
    for (const auto& [marked, button] : letters_) {
        if (static_cast<char32_t>(marked) == letter && button->CanInteract()) return button;
    }
    return nullptr;
}

}  // namespace zv::forms

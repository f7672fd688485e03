// Keys that act wherever the focus is in a window: one table for each window, the same on every
// backend.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "forms/key_chord.h"

namespace zv::forms {

class CommandButton;

class Shortcuts {
 public:
    struct Entry {
        KeyChord chord;
        CommandButton* button = nullptr;  ///< pressed as by a click, or null
        std::function<void()> act;        ///< where there is no button
        std::function<bool()> allowed;    ///< may be empty
    };

    /// The key presses the button, as long as a user could.
    void Press(KeyChord chord, CommandButton& button);
    /// Alt and the letter press the button, whatever its caption says.
    void PressByLetter(char letter, CommandButton& button);
    /// The key does something of its own, as long as `allowed` says so.
    void Do(KeyChord chord, std::function<void()> act, std::function<bool()> allowed = {});

    /// Null for a key that is none of these.
    const Entry* Find(KeyChord chord) const;
    /// Null where no button has the letter.
    CommandButton* ByLetter(char32_t letter) const;

 private:
    std::vector<Entry> entries_;
    std::vector<std::pair<char, CommandButton*>> letters_;
};

}  // namespace zv::forms

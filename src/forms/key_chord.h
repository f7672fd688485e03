// A key together with those that are held, and what it is called.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::forms {

struct KeyChord {
    int code = 0;
    bool control = false;
    bool shift = false;
    bool operator==(const KeyChord&) const = default;
};

/// "Ctrl+S", "Shift+F10", "Delete": as menus show it.
std::string NameOf(const KeyChord& chord);
/// The chord of that name; nothing for a key without one. A letter or a digit needs Ctrl.
std::optional<KeyChord> ParseKeyChord(std::string_view name);

}  // namespace zv::forms

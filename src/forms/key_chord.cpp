#include "forms/key_chord.h"

#include <array>
#include <utility>

#include "forms/control.h"

namespace zv::forms {
namespace {

constexpr std::string_view kCtrl = "Ctrl+";
constexpr std::string_view kShift = "Shift+";
constexpr int kFunctionKeys = 12;

constexpr std::array kNamedKeys = std::to_array<std::pair<int, std::string_view>>({
    {key::kEnter, "Enter"},
    {key::kTab, "Tab"},
    {key::kEscape, "Escape"},
    {key::kDown, "Down"},
    {key::kUp, "Up"},
    {key::kLeft, "Left"},
    {key::kRight, "Right"},
    {key::kHome, "Home"},
    {key::kEnd, "End"},
    {key::kPageUp, "PageUp"},
    {key::kPageDown, "PageDown"},
    {key::kDelete, "Delete"},
    {key::kMenu, "Menu"},
});

bool IsCharacter(int code) {
    return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

std::string NameOfKey(int code) {
    if (IsCharacter(code)) return {static_cast<char>(code)};
    if (code >= key::kF1 && code < key::kF1 + kFunctionKeys) {
        return "F" + std::to_string(code - key::kF1 + 1);
    }
    for (const auto& [named, name] : kNamedKeys) {
        if (named == code) return std::string(name);
    }
    return {};
}

}  // namespace

std::string NameOf(const KeyChord& chord) {
    std::string name;
    if (chord.control) name += kCtrl;
    if (chord.shift) name += kShift;
    return name + NameOfKey(chord.code);
}

std::optional<KeyChord> ParseKeyChord(std::string_view name) {
    KeyChord chord;
    const auto take = [&name](std::string_view held) {
        if (!name.starts_with(held)) return false;
        name.remove_prefix(held.size());
        return true;
    };
    chord.control = take(kCtrl);
    chord.shift = take(kShift);
    if (name.size() == 1 && chord.control && IsCharacter(name.front())) {
        chord.code = static_cast<unsigned char>(name.front());
        return chord;
    }
    for (int number = 0; number < kFunctionKeys; number++) {
        if (NameOfKey(key::kF1 + number) == name) chord.code = key::kF1 + number;
    }
    for (const auto& [code, named] : kNamedKeys) {
        if (named == name) chord.code = code;
    }
    return chord.code == 0 ? std::nullopt : std::optional(chord);
}

}  // namespace zv::forms

// Tables of captions in both scripts, found by an enumeration.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zv::resources {

inline constexpr std::int16_t kTraditionalLanguage = 1;

template <typename Id>
struct TextEntry {
    Id id;
    std::string_view simplified;
    std::string_view traditional;
};

/// The entries stand in the order of the enumeration, and `last` is the last of both.
template <typename Id, std::size_t N>
constexpr bool IsInOrder(const std::array<TextEntry<Id>, N>& table, Id last) {
    for (std::size_t i = 0; i < N; i++) {
        if (table[i].id != static_cast<Id>(i)) return false;
    }
    return N == static_cast<std::size_t>(last) + 1;
}

/// The text in the control's language: 1 Traditional, any other Simplified.
template <typename Id, std::size_t N>
std::string FindText(const std::array<TextEntry<Id>, N>& table, Id id, std::int16_t language) {
    const TextEntry<Id>& entry = table[static_cast<std::size_t>(id)];
    return std::string(language == kTraditionalLanguage ? entry.traditional : entry.simplified);
}

}  // namespace zv::resources

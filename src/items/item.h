// What an item is: its kinds and states as they are stored in tTaskList.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace zv::items {

/// fType.
enum class ItemKind : std::uint8_t { Task = 0, Guest = 1, Diary = 2 };
inline constexpr std::array kItemKinds = {ItemKind::Task, ItemKind::Guest, ItemKind::Diary};

/// tDone.
enum class ItemState : std::uint8_t { NotDone = 0, Done = 1, InHand = 2 };
inline constexpr std::array kItemStates = {ItemState::NotDone, ItemState::Done, ItemState::InHand};

/// The number as it is stored, which is also the row in the lists of kinds and states.
constexpr int Number(ItemKind kind) {
    return static_cast<int>(kind);
}
constexpr int Number(ItemState state) {
    return static_cast<int>(state);
}
constexpr std::size_t Position(ItemKind kind) {
    return static_cast<std::size_t>(kind);
}
constexpr std::size_t Position(ItemState state) {
    return static_cast<std::size_t>(state);
}

/// Nothing for a number that is no kind, or no state: a table may hold any.
constexpr std::optional<ItemKind> KindOf(std::int32_t number) {
    if (number < 0 || number >= static_cast<std::int32_t>(kItemKinds.size())) return std::nullopt;
    return static_cast<ItemKind>(number);
}
constexpr std::optional<ItemState> StateOf(std::int32_t number) {
    if (number < 0 || number >= static_cast<std::int32_t>(kItemStates.size())) return std::nullopt;
    return static_cast<ItemState>(number);
}

}  // namespace zv::items

// What the kinds and states of an item are called, wherever they are shown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "items/item.h"

namespace zv::items {

/// Of the kinds and states in the order of their numbers. Throw like resources::LoadText.
std::vector<std::string> KindNames(std::int16_t language);
std::vector<std::string> StateNames(std::int16_t language);

/// What a screen reader says of an item beside its title: its state, and its day where it has one.
/// Throws like resources::LoadText.
std::string Describe(ItemKind kind, ItemState state, std::string_view day, std::int16_t language);

}  // namespace zv::items

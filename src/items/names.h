// What the kinds and states of an item are called, wherever they are shown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zv::items {

/// Of the kinds and states in the order of their numbers. Throw like resources::LoadText.
std::vector<std::string> KindNames(std::int16_t language);
std::vector<std::string> StateNames(std::int16_t language);

}  // namespace zv::items

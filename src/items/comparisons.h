// Comparisons of items as statements carry them, without an alias before the column.
#pragma once

#include <string>

#include "items/item.h"

namespace zv::items {

/// "fType=1"
std::string IsOfKind(ItemKind kind);
/// "fType<>0"
std::string IsOfAnotherKind(ItemKind kind);
/// "tDone=1"
std::string IsInState(ItemState state);

}  // namespace zv::items

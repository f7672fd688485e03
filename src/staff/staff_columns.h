// The columns of the tables of people that the system knows.
#pragma once

#include <array>

#include "store/column.h"

namespace zv::staff {

inline constexpr auto kPersonnelColumns = std::to_array<store::Column>({{"fCode"}, {"fName"}});
inline constexpr auto kEmployeeColumns =
    std::to_array<store::Column>({{"employee"}, {"employcode"}});

}  // namespace zv::staff

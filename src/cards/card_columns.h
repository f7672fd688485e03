// The columns of the table of customer cards that the system knows.
#pragma once

#include <array>

#include "store/column.h"

namespace zv::cards {

inline constexpr auto kColumns = std::to_array<store::Column>({
    {"fID", store::ColumnKind::Number},
    {"CompCode"},
    {"CompName"},
    {"Name"},
    {"province"},
    {"cityname"},
    {"CompAdd"},
    {"telphone"},
    {"homephone"},
    {"handphone"},
    {"fax"},
    {"E_mail"},
    {"HomeEmail"},
    {"http"},
    {"HomeHttp"},
    {"Birthday", store::ColumnKind::Date},
    {"BoxID", store::ColumnKind::Number},
});

}  // namespace zv::cards

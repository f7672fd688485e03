// What the history says, in the words of the windows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "changes/history.h"

namespace zv::windows {

/// Of the tables whose rows can come back; null for any other name.
const changes::Table* TableCalled(std::string_view name);

/// What was done; the number itself where it stands for no act. These throw like
/// resources::LoadText.
std::string ActName(std::int32_t act, std::int16_t language);
/// What the windows call a field; the column itself where they do not show it.
std::string FieldName(const changes::Record& record, std::int16_t language);
/// The value of a field as it is shown: kinds and states by their names, days without a time of
/// midnight.
std::string ShownValue(const changes::Record& record, std::string_view value,
                       std::int16_t language);

/// The row that a record of a deletion holds; its table is null where that is none of ours.
changes::RowChange Deleted(const changes::Record& record);
/// Whether it is a plan, or what kind of item.
std::string KindOf(const changes::RowChange& change, std::int16_t language);

}  // namespace zv::windows

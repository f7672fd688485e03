// Dates that are kept or given as texts.
#pragma once

#include <string_view>

#include "store/rows/field_list.h"
#include "store/value.h"

namespace zv::store::rows {

/// Takes a stored text as a date where the field may hold dates; false, and `value` as it was, when
/// it is none.
bool TakeStoredDate(Value& value, std::string_view text, FieldUse use);

/// A text that is given for a field of dates becomes a date when it is one in a form that
/// statements know.
void TakeGivenDate(Value& value);

}  // namespace zv::store::rows

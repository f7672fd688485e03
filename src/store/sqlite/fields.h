// The fields of a statement of the embedded engine.
#pragma once

#include "store/rows/field_list.h"
#include "store/sqlite/session.h"

namespace zv::store::sqlite {

/// With `datesAsText` no field is one of dates.
rows::FieldList FieldsOf(const Statement& statement, bool datesAsText);

}  // namespace zv::store::sqlite

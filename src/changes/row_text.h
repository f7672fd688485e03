// A whole row as one text, in which it is kept on record.
#pragma once

#include <string>
#include <string_view>

#include "changes/row_change.h"

namespace zv::changes {

/// A line "column=value" for each known field, "column" alone for one that is null. Line breaks in
/// a value are escaped by backslashes.
std::string RowText(const Table& table, const Fields& fields);

/// Fields of a text that RowText made, perhaps of a table that had other columns: those that are
/// not named are not known, what names none is left out, and a value that does not suit its column
/// stays a text.
Fields FieldsOf(const Table& table, std::string_view text);

/// The value of a column that is written like this.
store::Value ValueOf(const store::Column& column, std::string_view text);

}  // namespace zv::changes

// Lists of texts and tables as automation clients hand them over.
#pragma once

#include <string>
#include <vector>

#include "base/win32/variant.h"
#include "report/document.h"
#include "report/parameters.h"

namespace zv::report {

/// The texts of an array of any element type or of a collection (Count and Item from 1, or an
/// enumeration). Empty, null and Nothing are no texts. Throws TypeMismatch for anything else.
std::vector<std::string> ReadTexts(const win32::Variant& list);

/// A grid as it stands: RowCount, ColumnCount, Heading(column), Text(row, column), all counted from
/// 1, and where the object has it Sign(row), which stands beside the first column. How wide its
/// columns are on paper follows from what they hold. Throws what the object reports.
Table ReadGrid(IDispatch& grid);

/// The rows from the current one on of an object with the members of ADO's Recordset, which is
/// neither closed nor moved back. Without columns all its fields are printed.
Table ReadRecordset(IDispatch& recordset, const std::vector<Heading>& columns, DateTime today,
                    std::int16_t language);

}  // namespace zv::report

// Captions of the fields of an item as the database names them: the same on screen and in print.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/database.h"

namespace zv::suite {

struct FieldCaption {
    std::string field;    ///< of tTaskList
    std::string caption;  ///< may be empty
};

/// The captions of rptListDetail in a language, in their order there, hidden fields
/// left out. A field that is described twice is there once, as its last row describes it. None when
/// the database has no such table or the table no such language; any other database error reaches
/// the caller.
std::vector<FieldCaption> ReadFieldCaptions(store::Database& database, std::int16_t language);

}  // namespace zv::suite

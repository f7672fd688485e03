// Captions of the fields of an item as the database names them: the same on screen and in print.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace zv::reports {

struct FieldCaption {
    std::string field;    ///< of tTaskList
    std::string caption;  ///< may be empty
};

/// The captions of rptListDetail in the control's language, in their order there, hidden fields
/// left out. A field that is described twice is there once, as its last row describes it. None when
/// the database has no such table or the table no such language; any other database error reaches
/// the caller.
std::vector<FieldCaption> ReadFieldCaptions(Session& session);

}  // namespace zv::reports

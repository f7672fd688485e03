// Which columns a printed list has: chosen once, kept on the workstation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "items/list_fields.h"
#include "session/session.h"

namespace zv::reports {

struct ListColumn {
    std::string field;    ///< of tTaskList
    std::string caption;  ///< never empty
};

/// The columns of the printed item list in their order, never none. What was chosen and is no
/// longer offered is left out; without a choice those that fit a page are taken.
std::vector<ListColumn> ChosenColumns(Session& session);

/// The fields of a layout text ("taskTime,taskTitle") that are among those offered, each once; the
/// usual ones when none is.
std::vector<items::ListField> FieldsOfLayout(std::string_view layout,
                                             const std::vector<items::ListField>& offered);
/// The layout text that is kept on this workstation, empty when none is.
std::string KeptLayout(const Session& session);
/// Keeps it when it differs from the one kept.
void KeepLayout(Session& session, const std::string& layout);

}  // namespace zv::reports

// Reports over the items, printed by the report component.
#pragma once

#include <string>
#include <vector>

#include "reports/list_layout.h"
#include "session/session.h"

namespace zv::reports {

/// The print mode of buttons and menus; the user prints or saves from the preview.
inline constexpr int kPreview = 0;

struct Report {
    int printMode = kPreview;  ///< handed to the component unchanged
    std::string name;
    std::string title;
    std::string filter;               ///< WHERE condition without the word, may be empty
    std::string order;                ///< ORDER BY list without the words, may be empty
    std::string asked;                ///< the filter in the user's words, may be empty
    std::vector<ListColumn> columns;  ///< of a list
};

/// Prints with the control's report parameters, which are empty again afterwards. Shows the user
/// when no item passes the filter; nothing is printed then. Throws error 429 without the component,
/// before anything is read; errors of the database and of the component reach the caller.
void PrintReport(Session& session, const Report& report);

}  // namespace zv::reports

// The print of a grid as it stands on the screen.
#pragma once

#include <string>

#include "forms/grid.h"
#include "session/session.h"

namespace zv::reports {

/// Hands the grid's visible columns and its rows, in the order in which they are shown, to the
/// report component for a preview, `asked` being what the rows were asked for in the user's words.
/// Does nothing without data rows or without a data path. The component's errors reach the caller.
void PrintGrid(Session& session, const forms::Grid& grid, const std::string& title,
               const std::string& subTitle, const std::string& asked = {});

}  // namespace zv::reports

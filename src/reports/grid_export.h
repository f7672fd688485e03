// A grid as a file for other programs.
#pragma once

#include <string>

#include "forms/grid.h"
#include "session/session.h"

namespace zv::reports {

/// Asks for a file and writes headings and rows of the visible columns as they are shown, as CSV.
/// Shows how many rows were written, or that it was called off; errors of writing leave here, and
/// a file that was there before is then as it was.
void ExportGrid(Session& session, const forms::Grid& grid, const std::string& proposedName);

}  // namespace zv::reports

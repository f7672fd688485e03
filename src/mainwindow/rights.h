// The user's right to what the buttons of the main window do.
#pragma once

#include <cstdint>
#include <string>

namespace zv::mainwindow {

class frmTaskMain;

/// Asks the module gate; a user without the right is told. Database errors reach the caller.
bool HasRight(frmTaskMain& window, const std::string& module, std::int16_t level);
/// The same for the items that the window was opened for: tasks, or plans of customer cards.
bool HasRightToItems(frmTaskMain& window, std::int16_t level);

}  // namespace zv::mainwindow

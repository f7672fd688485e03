// What every driver asks before it plays a user's act, and the reading of a control's own state.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "driver/driver.h"
#include "forms/control.h"
#include "forms/grid.h"
#include "forms/tree_view.h"

namespace zv::driver {

/// The control as its class; throws DriverError for another kind.
template <typename T>
T& As(forms::Control& control) {
    if (auto* typed = dynamic_cast<T*>(&control)) return *typed;
    throw DriverError(control.DisplayName() + " cannot do that");
}

/// Throws DriverError when a user could not reach the window or the control.
void RequireReachable(const forms::Form& form);
void RequireUsable(const forms::Control& control);
void RequireChoosable(const forms::MenuItem& item);
/// True when the entry belongs to the popup menu that is open: it is notified when the menu closes.
bool ChoseInStandingMenu(forms::MenuItem& item);
/// The grid, when it has that row; throws DriverError otherwise.
forms::Grid& RequireRow(forms::Control& control, int row);
/// The grid, when it shows that column; throws DriverError otherwise.
forms::Grid& RequireColumn(forms::Control& control, int column);
/// The node of that key; throws DriverError when there is none.
int RequireNode(const forms::TreeView& tree, const std::string& key);

/// A property as the control itself keeps it, nothing when it has no such property. Positions are
/// those of scenario files: list(i) from 0, cell(row, column) from 1.
std::optional<std::string> ReadState(const forms::Control& control, const std::string& property,
                                     const std::vector<int>& arguments);

}  // namespace zv::driver

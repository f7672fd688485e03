// Where the controls of the main window stand.
#pragma once

namespace zv::mainwindow {

class frmTaskMain;

/// Sizes that the window starts with and does not go below.
void SetWindowSize(frmTaskMain& window);
/// Places every control in the present client area. Rows and columns are as large as the texts of
/// the present language need them.
void PlaceControls(frmTaskMain& window);

}  // namespace zv::mainwindow

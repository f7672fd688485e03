// Where the controls of the plan editor stand.
#pragma once

namespace zv::windows {

class frmTaskSet;

/// Places every control by the texts of the present language and sizes the window around them.
void PlaceControls(frmTaskSet& window);
/// Places the fields of the recurrence that the chosen kind shows, one behind the other.
void PlaceSchedule(frmTaskSet& window);

}  // namespace zv::windows

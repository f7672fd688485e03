// What a change of the store means for the windows that are open.
#pragma once

namespace zv {

class Session;

namespace mainwindow {

/// The user is about to write something to the present store: an edit in the main window, an open
/// plan editor or an open completion dialog.
bool EditUnderWay(Session& session);
/// Fills the windows from the store that was opened: the main window anew, with the captions that
/// this store gives, and the staff list; the query window is emptied. Database errors reach the
/// caller.
void ShowNewStore(Session& session);

}  // namespace mainwindow
}  // namespace zv

// What the program beside the clock says.
#pragma once

namespace zv::resources {

enum class AlerterText {
    NothingDue,
    Due,  ///< "{0}" is how many items are due
    MustLogIn,
    Paused,   ///< "{0}" is the time until then
    Balloon,  ///< "{0}" is how many items are newly due
    Open,
    NewEntry,
    Pause,
    GoOn,
    Options,
    Exit,
    Last = Exit,
};

}  // namespace zv::resources

// What the main window asks and says about items beyond the message catalogue.
#pragma once

namespace zv::resources {

enum class ItemText {
    ChangedByOthers,
    StoredNow,
    YourInput,
    OverwriteQuestion,
    BelongsToPlan,
    SaveAnyway,
    StateAndDue,   ///< "{0}" is the state of a task, "{1}" its day
    StateAndDate,  ///< the same of another item
    Last = StateAndDate,
};

}  // namespace zv::resources

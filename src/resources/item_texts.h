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
    Last = SaveAnyway,
};

}  // namespace zv::resources

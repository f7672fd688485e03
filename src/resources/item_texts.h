// What the main window asks and says about items beyond the message catalogue.
#pragma once

#include <cstdint>
#include <string>

namespace zv::resources {

enum class ItemText {
    ChangedByOthers,
    StoredNow,
    YourInput,
    OverwriteQuestion,
    BelongsToPlan,
    SaveAnyway,
};

/// The text in the control's language: 1 Traditional, any other Simplified.
std::string GetItemText(ItemText id, std::int16_t language);

}  // namespace zv::resources

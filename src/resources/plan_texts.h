// Captions of the plan editor and the staff list that the message catalogue does not hold.
#pragma once

#include <cstdint>
#include <string>

namespace zv::resources {

enum class PlanText {
    ListPrefix,
    KindYear,
    KindMonth,
    KindDay,
    KindWeek,
    Sunday,
    Monday,
    Tuesday,
    Wednesday,
    Thursday,
    Friday,
    Saturday,
    On,
    PickSetter,
    PickExecutor,
    CaptionSeparator,
};

/// The caption in the control's language: 1 Traditional, any other Simplified.
std::string GetPlanText(PlanText id, std::int16_t language);

}  // namespace zv::resources

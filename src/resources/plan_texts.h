// Captions of the plan editor and the staff list that the message catalogue does not hold.
#pragma once

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
    Last = CaptionSeparator,
};

}  // namespace zv::resources

// What the main window says at a glance: how far off an item's day is, how many there are.
#pragma once

namespace zv::resources {

enum class StatusText {
    Overdue,
    Today,
    Later,
    OverdueBy,   ///< "{0}" days
    DaysLater,   ///< likewise
    SpokenSign,  ///< "{0}" is what is said of an item already, "{1}" its sign
    TodayCount,
    OverdueCount,
    CannotCount,
    ItemsShown,
    PlansShown,
    Narrowed,  ///< "{0}" is by what
    NotNarrowed,
    BySearch,
    ShowSaved,
    ListedByRight,
    CardsFound,      ///< "{0}" is what was looked for, "{1}" how many
    MostCardsFound,  ///< the same where more may have been found
    InList,
    InAll,
    NoDoer,
    OtherDoers,
    CountOf,  ///< "{0}" is what, "{1}" how many
    Between,
    Listed,  ///< between the names of a list
    BehindName,
    Last = BehindName,
};

}  // namespace zv::resources

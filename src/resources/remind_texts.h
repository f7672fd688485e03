// What the window of reminders says.
#pragma once

namespace zv::resources {

enum class RemindText {
    Caption,
    Count,    ///< "{0}" is how many are due
    Old,      ///< "{0}" is how many were overdue before the user was reminded at all
    NoStore,  ///< the database is away
    ColumnDue,
    // How an item's day lies to the present one; "{0}" is a time of day, or a number of days.
    Today,
    TodayAt,
    Tomorrow,
    TomorrowAt,
    InDays,
    OverdueBy,
    Anytime,
    ButtonDone,
    ButtonInHand,
    ButtonOpen,
    ButtonLater,
    ButtonDismiss,
    ButtonClose,
    AskDone,     ///< "{0}" is how many
    AskDismiss,  ///< likewise
    Gone,        ///< "{0}" is how many somebody else has changed or deleted
    NotLater,    ///< the moment is past, or the calendar ends before
    // How long a reminder is put off, in the order of the choices.
    FiveMinutes,
    QuarterHour,
    HalfHour,
    Hour,
    FourHours,
    TomorrowMorning,
    NextMonday,
    OwnTime,
    Interval,  ///< of the looks, in the options
    Last = Interval,
};

}  // namespace zv::resources

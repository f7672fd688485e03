// What is said of acts that can be taken back, and of the history.
#pragma once

namespace zv::resources {

enum class ChangeText {
    // What was done, and the key that takes it back; "{0}" is a title, or how many.
    Added,
    Changed,
    Deleted,
    Marked,
    Generated,
    Answered,  ///< a reminder
    Restored,
    Several,
    // What stands against it, a heading and lines; "{0}" is a title.
    CannotTakeBack,
    CannotRestore,
    ChangedMeanwhile,
    GoneMeanwhile,
    TakenMeanwhile,
    AndMore,      ///< "{0}" is how many
    OtherNumber,  ///< "{0}" is a title, "{1}" the number under which it came back
    NotRecorded,  ///< "{0}" is why the history could not be written
    // The window of the history.
    HistoryCaption,
    NoHistory,
    Deletions,
    AlreadyThere,
    ColumnWhen,
    ColumnWho,
    ColumnAct,
    ColumnField,
    ColumnBefore,
    ColumnAfter,
    ButtonRestore,
    ButtonClose,
    KeptFor,  ///< how long, in the options
    // What was done, in the order of changes::Act.
    ActAdd,
    ActChange,
    ActDelete,
    ActMark,
    ActGenerate,
    ActTakeBack,
    ActRestore,
    Last = ActRestore,
};

}  // namespace zv::resources

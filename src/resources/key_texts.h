// What keys do, and what is said about input that is not stored.
#pragma once

namespace zv::resources {

enum class KeyText {
    Heading,
    Add,
    Change,
    Delete,
    Save,
    Done,
    InHand,
    ReadAgain,
    Find,
    Print,
    TakeBack,
    DoAgain,
    History,
    NodeMenu,
    NextPage,
    Leave,
    ThisList,
    Confirm,
    Query,
    Export,
    PutOff,
    Dismiss,
    OpenItem,
    SelectAll,
    DropInput,  ///< asks whether what was entered and not stored may be lost
    PutAside,   ///< "{0}" is the title of the item whose input can be taken back
    Last = PutAside,
};

}  // namespace zv::resources

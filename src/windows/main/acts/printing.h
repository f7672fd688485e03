// The prints of the main window: the item shown, the item list, the birthday grid.
#pragma once

#include "windows/main/acts/field_labels.h"
#include "windows/main/acts/listing.h"

namespace zv::windows {

class Printing {
 public:
    /// All must outlive this.
    Printing(forms::Form& form, Session& session, CommandPanel& commands, BirthdayPanel& reminder,
             FieldLabels& labels, const ItemView& view, const Listing& listing);

    /// Prints what the editor shows. The mode is the report component's.
    void PrintItem(int printMode);
    /// Shows the preview of the items that the tree showed last, in its order, with the columns
    /// that the user chose.
    void PrintItemList();
    /// Lets the user choose the columns of the printed list, then prints it. Where lists may not
    /// be printed the choice is only kept.
    void cmdItemSet_Click();
    /// Prints the birthday grid while the user sees it, else the item.
    void cmdPrint_Click();

 private:
    void FillParameters();

    forms::Form& form_;
    Session& session_;
    CommandPanel& commands_;
    BirthdayPanel& reminder_;
    FieldLabels& labels_;
    const ItemView& view_;
    const Listing& listing_;
};

}  // namespace zv::windows

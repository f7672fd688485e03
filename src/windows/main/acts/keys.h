// The keys of the main window: what they press, where menus and tool tips say so, and their list.
#pragma once

#include <functional>

#include "windows/main/acts/completion.h"
#include "windows/main/acts/listing.h"

namespace zv::windows {

class Keys {
 public:
    /// All must outlive this.
    Keys(forms::Form& form, Session& session, const MainModel& model, FilterPanel& filter,
         CommandPanel& commands, Listing& listing, Completion& completion,
         const Selection& selection, const ItemView& view);

    /// Tool tips in the control's language, with the keys of their buttons.
    void ShowToolTips();
    /// Lists all keys in a box.
    void ShowList();

 private:
    void Wire();
    void ShowInMenus();
    bool CanTakeBack() const;
    void ShowHistoryOfCurrent();

    forms::Form& form_;
    Session& session_;
    const MainModel& model_;
    FilterPanel& filter_;
    CommandPanel& commands_;
    Listing& listing_;
    Completion& completion_;
    const Selection& selection_;
    const ItemView& view_;
};

}  // namespace zv::windows

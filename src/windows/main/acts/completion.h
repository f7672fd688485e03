// Completing: the state of the selected item, and generating the items of the selected plan.
#pragma once

#include <cstdint>
#include <string>

#include "windows/main/acts/listing.h"

namespace zv::windows {

class Completion {
 public:
    /// All must outlive this.
    Completion(forms::Form& form, Session& session, MainModel& model, TreePanel& tree,
               ItemPanel& head, CommandPanel& commands, ItemView& view, Selection& selection);

    /// Sets the selected item to done (mode 0) or in hand (any other) after asking the user. The
    /// node changes its image in place. Does nothing when the editor shows that state already.
    void SetItemState(std::int16_t mode);

    void cmdTaskOK_Click();
    void cmdTaskOK_MouseDown(const forms::MouseEvent& event);
    void mnuEventDone_Click();
    /// As the entry of the completing button's menu, its right included.
    void StartInHand();
    bool MayStartInHand() const;

 private:
    void Wire();
    std::string Question(items::ItemState state) const;
    void ShowAsMarked(const ItemRef& item, items::ItemState state, const std::string& doer);
    void ShowState(const ItemRef& item, items::ItemState state);

    forms::Form& form_;
    Session& session_;
    MainModel& model_;
    TreePanel& tree_;
    ItemPanel& head_;
    CommandPanel& commands_;
    ItemView& view_;
    Selection& selection_;
};

}  // namespace zv::windows

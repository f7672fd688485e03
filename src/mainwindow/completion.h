// Completing: the state of the selected item, and generating the items of the selected plan.
#pragma once

#include <cstdint>
#include <string>

#include "forms/control.h"
#include "mainwindow/named_item.h"

namespace zv::mainwindow {

class frmTaskMain;

class Completion {
 public:
    explicit Completion(frmTaskMain& window) : window_(window) {}

    void Wire();

    /// Sets the selected item to done (mode 0) or in hand (any other) after asking the user. The
    /// node changes its image in place. Does nothing when the editor shows that state already.
    void SetItemState(std::int16_t mode);

    void cmdTaskOK_Click();
    void cmdTaskOK_MouseDown(const forms::MouseEvent& event);
    void mnuEventDone_Click();

 private:
    bool ShowsStoredItem() const;
    void ShowAsMarked(const NamedItem& item, int newState, const std::string& doer);
    void SetNodeState(const NamedItem& item, char stateDigit);

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow

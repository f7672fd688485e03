// The six free fields of an item: the panel that scrolls to the one in use.
#pragma once

#include "reports/item_names.h"

namespace zv::mainwindow {

class frmTaskMain;

using reports::kOtherFields;

class OtherFields {
 public:
    explicit OtherFields(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// Scrolls until the box is wholly visible.
    void txtOther_GotFocus(int index);

 private:
    frmTaskMain& window_;
};

}  // namespace zv::mainwindow

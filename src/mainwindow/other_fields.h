// The six free fields of an item: the panel that scrolls to the one in use.
#pragma once

namespace zv::mainwindow {

class frmTaskMain;

inline constexpr int kOtherFields = 6;

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

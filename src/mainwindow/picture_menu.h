// The menu that hides in the picture beside the tree.
#pragma once

#include "forms/control.h"

namespace zv::mainwindow {

class frmTaskMain;

class PictureMenu {
 public:
    explicit PictureMenu(frmTaskMain& window) : window_(window) {}

    void Wire();
    void picImage_MouseMove(const forms::MouseEvent& event);

 private:
    frmTaskMain& window_;
};

}  // namespace zv::mainwindow

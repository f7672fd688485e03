// Finds cards by their code, or by a part of the code or the company name.
#pragma once

#include <string>

#include "forms/control.h"

namespace zv::mainwindow {

class frmTaskMain;

class CardSearch {
 public:
    explicit CardSearch(frmTaskMain& window) : window_(window) {}

    void Wire();
    void txtCompSeek_KeyDown(forms::KeyEvent& event);

 private:
    /// The cards of exactly that code, or else those that hold the text.
    std::string Filter(const std::string& text) const;

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow

// Every caption of the main window, in the control's language.
#pragma once

#include <string>
#include <vector>

#include "resources/design_texts.h"

namespace zv::mainwindow {

class frmTaskMain;

class Captions {
 public:
    explicit Captions(frmTaskMain& window) : window_(window) {}

    /// The captions that the catalogue gives, then all others.
    void Load();
    /// The captions of the window's own design.
    void LoadDesign();
    /// A design text in the control's language.
    std::string Text(resources::DesignText id) const;

 private:
    void LoadLabels();
    void LoadButtons();
    void LoadMenus();
    std::string Catalogue(std::int16_t id) const;

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow

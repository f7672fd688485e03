// The search by conditions that the user puts together.
#pragma once

#include <vector>

#include "reports/query_condition.h"

namespace zv::mainwindow {

class frmTaskMain;

class AdvancedSearch {
 public:
    explicit AdvancedSearch(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// Asks for conditions and fills the tree with the items that meet them; a cancel leaves it.
    void mnuSeek2_Click();

 private:
    frmTaskMain& window_;
    std::vector<reports::Condition> conditions_;  ///< of the last search, to begin the next with
};

}  // namespace zv::mainwindow

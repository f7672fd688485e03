// The item or plan that a question, a password or a menu is about.
#pragma once

#include <cstdint>

namespace zv::mainwindow {

class frmTaskMain;

/// Taken before the user is asked: while a question stands, the host or a timer may fill the tree
/// anew or close the window, and the answer is still about what was named.
class NamedItem {
 public:
    /// What is current in the window.
    explicit NamedItem(const frmTaskMain& window);
    NamedItem(std::int32_t number, bool plan) : number_(number), plan_(plan) {}

    /// fID of the item or TaskID of the plan; 0 when there is none.
    std::int32_t Number() const { return number_; }
    bool IsPlan() const { return plan_; }
    bool IsCurrent(const frmTaskMain& window) const;
    /// Its node in the tree as it is filled at present; kNone when there is none.
    int Node(const frmTaskMain& window) const;
    /// Selects it again where the tree was filled anew. False when it cannot be current any more,
    /// which the user is told. Database errors of showing it reach the caller.
    bool MakeCurrent(frmTaskMain& window) const;

 private:
    bool SelectAgain(frmTaskMain& window) const;

    std::int32_t number_;
    bool plan_;
};

}  // namespace zv::mainwindow

// What must hold after every line, whatever was done.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace zv::driver {
class Driver;
}
namespace zv::forms {
class Form;
}

namespace zv::script {

class ScenarioStage;

/// The line writes rows, or takes another database, as a program beside the control does.
bool IsOfAnotherProgram(const std::string& line);

/// What the driver sees of a control and the control does not hold; empty when there is nothing.
/// Without a display there is nothing else to see. A box of a scenario is none of the system's, and
/// takes no focus from the window that stands behind it: there the focus is not looked at.
std::string ScreenFault(driver::Driver& driver, const forms::Form& form, bool behindBox);

class Invariants {
 public:
    Invariants();
    ~Invariants();
    Invariants(const Invariants&) = delete;
    Invariants& operator=(const Invariants&) = delete;

    /// Lines nest while something modal stands.
    void LineBegins(ScenarioStage& stage, const std::string& line);
    /// A message box was answered: its line in `messages`.
    void BoxAnswered(const std::string& box);
    /// What does not hold, in words; empty when everything does: no two nodes of a tree have the
    /// same key, the editor is locked unless input can be saved, the focus is somewhere where it
    /// can be, the screen shows what the controls hold, the engine takes every statement that was
    /// sent, and rows change only where a box stood, or the host did it, or one by its reminder.
    std::string LineEnded(ScenarioStage& stage);
    /// The same of the end: no window is left that a user cannot close.
    static std::string AtEnd(ScenarioStage& stage);

 private:
    struct Frame {
        std::string line;
        std::string rows;
        bool nests = false;
        std::vector<std::string> boxes;
    };
    class EmptyDatabase;
    std::string StatementFault(ScenarioStage& stage, const Frame& frame);
    static std::string RowFault(ScenarioStage& stage, const Frame& frame);

    std::vector<Frame> frames_;
    std::set<std::string> taken_;  ///< statements
    std::size_t seen_ = 0;         ///< statements of the stage
    std::unique_ptr<EmptyDatabase> empty_;
};

}  // namespace zv::script

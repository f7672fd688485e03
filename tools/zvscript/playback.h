// The lines of one scenario, played one after the other; while a modal window is open from inside
// the operation that opened it.
#pragma once

#include <string>
#include <vector>

#include "command.h"

namespace zv::forms {
class Form;
}

namespace zv::script {

class Playback {
 public:
    explicit Playback(std::vector<Step> steps) : steps_(std::move(steps)) {}

    void Run(Stage& stage);
    /// Plays on until the window is gone; when the lines end or fail before, closes it.
    void RunInside(Stage& stage, forms::Form& form);

    bool Failed() const { return line_ != 0; }
    /// The file itself turned out to be wrong.
    bool Wrong() const { return wrong_; }
    int FailedLine() const { return line_; }
    const std::string& Reason() const { return reason_; }

 private:
    bool AtEnd() const { return Failed() || next_ == steps_.size(); }
    void PlayNext(Stage& stage);
    void Attempt(Stage& stage, int line, const std::function<void()>& act);
    void Fail(int line, std::string reason);

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    int line_ = 0;
    bool wrong_ = false;
    std::string reason_;
};

}  // namespace zv::script

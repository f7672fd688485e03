// What happens while a box or a menu stands: the lines of "during", kept until it does.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "command.h"
#include "scripted_dialogs.h"

namespace zv::script {

struct Interlude {
    Standing kind = Standing::Box;
    int line = 0;                                    ///< of the word "during"
    std::shared_ptr<const std::vector<Step>> steps;  ///< at least one
};

class Interludes {
 public:
    void Add(Interlude interlude) { waiting_.push_back(std::move(interlude)); }
    /// The first of that kind that waits; it waits no longer.
    std::optional<Interlude> Take(Standing kind);
    bool Waits(Standing kind) const;
    /// The first that waits, or null.
    const Interlude* First() const { return waiting_.empty() ? nullptr : &waiting_.front(); }

 private:
    std::deque<Interlude> waiting_;
};

/// "message box", "input box" or "menu".
const char* NameOf(Standing kind);

}  // namespace zv::script

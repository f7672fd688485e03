// The commands of the scenario language. Each is checked as far as its words say before anything
// runs, and becomes an action.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "script_text.h"

namespace zv::script {

class Stage;

/// Throws Failure when the scenario fails, ScriptError for a control that does not exist; a
/// RuntimeError is a failure, too.
using Action = std::function<void(Stage&)>;

struct CommandSpec {
    static constexpr std::size_t kMany = 1000;

    std::string_view name;
    std::size_t minWords;
    std::size_t maxWords;
    std::string_view usage;  ///< the words as a reader would write them
    /// `words` are those behind the name. Throws ScriptError when they are wrong.
    Action (*compile)(Words words);
};

std::span<const CommandSpec> StageCommands();
std::span<const CommandSpec> ActingCommands();
std::span<const CommandSpec> LookingCommands();

struct Step {
    int line = 0;
    Action action;
};

/// Throws ScriptError with the line.
std::vector<Step> CompileScript(std::string_view text);

}  // namespace zv::script

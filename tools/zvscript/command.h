// The commands of the scenario language. Each is checked as far as its words say before anything
// runs, and becomes an action.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "script_text.h"
#include "target.h"

namespace zv::script {

class ScenarioStage;

/// Throws Failure when the scenario fails, ScriptError for a control that does not exist; a
/// RuntimeError is a failure, too.
using Action = std::function<void(ScenarioStage&)>;

/// What a line does to a popup menu that is open.
enum class OpenMenu {
    Closes,  ///< without a choice, before the line runs
    Stays,   ///< the line looks, or arranges what neither host nor user do
    Chooses  ///< from it, when the entry is one of the menu's; otherwise as Closes
};

struct CommandSpec {
    static constexpr std::size_t kMany = 1000;

    std::string_view name;
    std::size_t minWords;
    std::size_t maxWords;
    std::string_view usage;  ///< the words as a reader would write them
    /// `words` are those behind the name. Throws ScriptError when they are wrong.
    Action (*compile)(Words words);
    OpenMenu openMenu = OpenMenu::Closes;
};

std::span<const CommandSpec> StageCommands();
std::span<const CommandSpec> RowCommands();
std::span<const CommandSpec> ActingCommands();
std::span<const CommandSpec> LookingCommands();

struct Step {
    int line = 0;
    Action action;
    OpenMenu openMenu = OpenMenu::Closes;
    std::optional<Target> entry;  ///< the menu entry that the line chooses
};

/// Throws ScriptError with the line.
std::vector<Step> CompileScript(std::string_view text);

}  // namespace zv::script

// Scenario files: a line is named or the file is understood, and what was understood can be written
// down again.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "script_text.h"

namespace zv::fuzz {

using ScriptReader = std::function<std::vector<script::ScriptLine>(std::string_view)>;

void PlayScenario(std::string_view input, const ScriptReader& read = script::ReadScript);
std::vector<std::string> ScenarioSeeds();

}  // namespace zv::fuzz

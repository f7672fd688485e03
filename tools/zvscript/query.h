// What a scenario can look at.
#pragma once

#include <functional>
#include <string>

#include "script_text.h"

namespace zv::script {

class ScenarioStage;

/// Yields the text, lines joined by line feeds. Throws Failure when there is nothing to look at,
/// ScriptError for a control or property that does not exist.
using Query = std::function<std::string(ScenarioStage&)>;

/// Number of words, one or two, that a query beginning with this word takes.
std::size_t QueryWords(const std::string& first);

/// Throws ScriptError for a query that does not exist.
Query ParseQuery(Words words);

}  // namespace zv::script

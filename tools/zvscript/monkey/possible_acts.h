// What a user or a host could do now, as lines of a scenario.
#pragma once

#include <string>
#include <vector>

#include "monkey/random_choice.h"

namespace zv::forms {
class MenuItem;
}

namespace zv::script {

class ScenarioStage;

/// The stage on which a random playing begins: rows of every kind, and a user with all rights.
std::vector<std::string> OpeningLines();

/// One of the acts of a user at the windows that he can reach; empty when he can do nothing.
std::string ChooseUserAct(const ScenarioStage& stage, RandomChoice& random);
/// One of what a host, another user or the clock does.
std::string ChooseHostAct(RandomChoice& random);
/// An entry of the menu that stands; empty when none can be chosen.
std::string ChooseEntry(const forms::MenuItem& root, RandomChoice& random);
/// What is typed into boxes, quoted.
std::string ChooseText(RandomChoice& random);

}  // namespace zv::script

// Who plays on a stage: a file line by line, or chance.
#pragma once

#include <string>

#include "scripted_dialogs.h"

namespace zv::forms {
class Form;
}

namespace zv::script {

class ScenarioStage;

class Player {
 public:
    virtual ~Player() = default;
    virtual void Run(ScenarioStage& stage) = 0;
    /// Plays on until the modal window is gone; closes it when there is nothing more to play.
    virtual void RunInside(ScenarioStage& stage, forms::Form& form) = 0;
    /// Plays what is to happen while something stands, before it is answered.
    virtual void RunWhileStanding(ScenarioStage& stage, const StandingBox& box) = 0;
    /// Plays on while a popup menu is open.
    virtual void RunInMenu(ScenarioStage& stage) = 0;
    /// A message box was answered: its line in `messages`.
    virtual void OnAnswered(const std::string& line) = 0;
};

}  // namespace zv::script

// What a random playing did, kept so that it can be written as a scenario.
#pragma once

#include <string>
#include <vector>

#include "scripted_dialogs.h"

namespace zv::script {

struct RecordedAct;

/// A box that came up, what was done while it stood, and how it was answered.
struct RecordedBox {
    Standing kind = Standing::Box;
    std::string answer;  ///< as behind "answer" or "input"
    std::vector<RecordedAct> during;
};

struct RecordedAct {
    std::string line;
    /// Those that came up after this line began and before the next one did.
    std::vector<RecordedBox> boxes;
};

/// The lines of a scenario that does the same.
std::string ToScenario(const std::vector<RecordedAct>& acts);

}  // namespace zv::script

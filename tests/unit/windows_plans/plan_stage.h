// The stage of the plans' tests: rows are told beside the statements, and no question goes without
// an answer.
#pragma once

#include "stage/stage.h"

namespace zv::windows {

class PlanStage : public stage::Stage {
 public:
    PlanStage() {
        statements.tellsRows = true;
        dialogs.mustHaveAnswers = true;
    }
};

}  // namespace zv::windows

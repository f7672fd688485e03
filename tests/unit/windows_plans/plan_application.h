// The application of the plans' tests: rows are told beside the statements, and no question goes
// without an answer.
#pragma once

#include "application/test_application.h"

namespace zv::windows {

class PlanApplication : public test::TestApplication {
 public:
    PlanApplication() {
        statements.tellsRows = true;
        dialogs.mustHaveAnswers = true;
    }
};

}  // namespace zv::windows

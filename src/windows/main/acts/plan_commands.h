// Opens the plan editor from the main window.
#pragma once

#include <cstdint>

#include "windows/main/acts/listing.h"

namespace zv::windows {

class PlanCommands {
 public:
    /// All must outlive this.
    PlanCommands(forms::Form& form, Session& session, const MainModel& model,
                 CommandPanel& commands, Listing& listing);

    void mnuEventAdd_Click();
    /// Throws error 6 for a plan number beyond 16 bits.
    void mnuEventChg_Click();

 private:
    void Edit(std::int16_t taskId);

    forms::Form& form_;
    Session& session_;
    const MainModel& model_;
    Listing& listing_;
};

}  // namespace zv::windows

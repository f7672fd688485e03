// Memory that runs out. For a program of its own, whose memory it takes over.
#pragma once

#include "fault.h"

namespace zv::ring {

class MemoryFaults final : public Faults {
 public:
    /// The engine's memory is counted, too. Before the engine is used for the first time.
    MemoryFaults();

    std::vector<std::string> Operations() const override { return {"memory"}; }
    FlowOptions Options() const override;
    void Arm(const FaultPoint& point) override;
    bool Disarm() override;
};

}  // namespace zv::ring

// Calls of the disk that fail, and those of locks and shared memory.
#pragma once

#include "fault.h"
#include "ring/disk/disk_call.h"
#include "ring/disk/watched_disk.h"

namespace zv::ring {

/// "any" counts calls of every kind together, those of locks and shared memory apart: from then on
/// the disk is gone.
class DiskFaults final : public Faults, private DiskWatcher {
 public:
    DiskFaults() : watched_(*this) {}

    std::vector<std::string> Operations() const override;
    void Arm(const FaultPoint& point) override;
    bool Disarm() override;

 private:
    bool Allows(const DiskCall& call) override;
    void Served(const DiskCall&) override {}

    FaultPoint point_;
    long left_ = 0;
    bool armed_ = false;
    bool failed_ = false;
    WatchedDisk watched_;
};

}  // namespace zv::ring

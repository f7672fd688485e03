#include "disk_faults.h"

namespace zv::ring {

std::vector<std::string> DiskFaults::Operations() const {
    std::vector<std::string> names(kActionNames.begin(), kActionNames.end());
    names.emplace_back("any");
    return names;
}

void DiskFaults::Arm(const FaultPoint& point) {
    point_ = point;
    left_ = point.number;
    failed_ = false;
    armed_ = true;
}

bool DiskFaults::Disarm() {
    armed_ = false;
    return failed_;
}

bool DiskFaults::Allows(const DiskCall& call) {
    if (!armed_) return true;
    const auto action = static_cast<std::size_t>(call.action);
    const bool counts = point_.operation == "any" ? IsOfDisk(call.action)
                                                  : point_.operation == kActionNames.at(action);
    if (!counts) return true;
    left_--;
    const bool fails = left_ == 0 || (left_ < 0 && point_.forever);
    failed_ = failed_ || fails;
    return !fails;
}

}  // namespace zv::ring

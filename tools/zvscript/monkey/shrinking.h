// Makes a failing playing as short as it can be.
#pragma once

#include <functional>
#include <vector>

#include "monkey/recorded_act.h"

namespace zv::script {

/// Leaves out acts behind the first `kept` as long as `fails` stays true of the rest; asks it at
/// most `most` times.
std::vector<RecordedAct> Shrink(std::vector<RecordedAct> acts, std::size_t kept, int most,
                                const std::function<bool(const std::vector<RecordedAct>&)>& fails);

}  // namespace zv::script

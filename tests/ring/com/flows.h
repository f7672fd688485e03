// What hosts do with a control, and what can happen inside their own code meanwhile.
#pragma once

#include <vector>

#include "stage.h"

namespace zv::ring::com {

/// One thing that a host does. It may find the control gone after each call.
struct Flow {
    const char* name;
    void (*play)(Stage& stage);
    bool isCostly = false;  ///< it opens windows
};
const std::vector<Flow>& Flows();

/// What a double does inside a call of the control, and what it answers.
struct Act {
    const char* name;
    void (*run)(Stage& stage);
    std::optional<HRESULT> answer;
    bool isCostly = false;  ///< it opens windows
};
const std::vector<Act>& Acts();

/// Plays the flow with the act in its N-th call. Empty when all is as it should be.
/// `reached`: whether there was such a call.
std::string Play(const Flow& flow, const Act& act, int call, bool& reached);

}  // namespace zv::ring::com

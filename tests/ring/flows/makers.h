// The makers of the flows, each of a kind.
#pragma once

#include <memory>
#include <string>

#include "ring/flows/flow.h"

namespace zv::ring {

/// Null when there is no such flow.
std::unique_ptr<Flow> MakeWindowFlow(const std::string& name, const FlowOptions& options);
std::unique_ptr<Flow> MakeToolFlow(const std::string& name, const FlowOptions& options);

}  // namespace zv::ring

#include "ring/flows/flow.h"

#include <stdexcept>

#include "ring/flows/makers.h"
#include "zvdb/check.h"

namespace zv::ring {

std::unique_ptr<Flow> MakeFlow(const std::string& name, const FlowOptions& options) {
    auto flow = MakeWindowFlow(name, options);
    if (!flow) flow = MakeToolFlow(name, options);
    if (!flow) throw std::invalid_argument("there is no flow \"" + name + "\"");
    return flow;
}

std::vector<std::string> WrongWithFile(const std::string& path) {
    try {
        return zvdb::CheckDatabase(path).problems;
    } catch (const std::exception& error) {
        return {std::string("the file cannot be checked: ") + error.what()};
    }
}

}  // namespace zv::ring

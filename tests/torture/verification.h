// What the journals promise, held against what the database holds.
#pragma once

#include <string>
#include <vector>

#include "shared_data.h"

namespace zv::torture {

struct Findings {
    int steps = 0;
    int acknowledged = 0;
    std::vector<std::string> wrong;  ///< a sentence each
};

/// `journals`: the files of all workers, none of which runs any longer.
Findings Verify(const Target& target, const std::vector<std::string>& journals);

}  // namespace zv::torture

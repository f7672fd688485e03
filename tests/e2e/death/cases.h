// The windows and boxes that stop everything, and how each is brought up.
#pragma once

#include <vector>

#include "host.h"

namespace zv::death {

std::vector<Case> Cases();

}  // namespace zv::death

#pragma once

#include <functional>

namespace zv::report {

/// Told how much of a long work is done; false stops it.
using Progress = std::function<bool(int done, int total)>;

}  // namespace zv::report

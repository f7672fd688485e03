// The day on which all benchmarks take place.
#pragma once

#include "base/date_time.h"

namespace zv::bench {

inline DateTime Day() {
    return DateTime(2026, 3, 9);
}

}  // namespace zv::bench

// What showing any window costs: a process that shows a bare one and tells how long that took.
#include <cstdio>

#include "floors/bare_window.h"
#include "win32/process_age.h"

int wmain() {
    zv::bench::BareWindow window;
    window.Show();
    std::printf("%.3f\n", zv::bench::ProcessAgeMilliseconds());
    return 0;
}

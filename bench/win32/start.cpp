// From the start of a process to the task manager on the screen: zvbench_start FILE prints the
// milliseconds.
#include <cstdio>

#include "bench_application.h"
#include "win32/process_age.h"
#include "win32/screen.h"
#include "win32/wide_main.h"

namespace zv::bench {
namespace {

void Main(const Arguments& arguments) {
    Screen screen;
    BenchApplication application(screen.backend, arguments[0]);
    application.Control().refresh(windows::kManagerMode, 0);
    if (application.Window() == nullptr) throw std::runtime_error("the window did not open");
    screen.Paint(*application.Window());
    std::printf("%.3f\n", ProcessAgeMilliseconds());
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, "zvbench_start FILE", zv::bench::Main);
}

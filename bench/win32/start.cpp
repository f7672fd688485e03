// From the start of a process to the task manager on the screen: zvbench_start FILE prints the
// milliseconds.
#include <cstdio>

#include "bench_application.h"
#include "doubles/no_dialogs.h"
#include "driver/win32/played_backend.h"
#include "forms/win32/win32_backend.h"
#include "win32/process_age.h"
#include "win32/wide_main.h"

namespace zv::bench {
namespace {

int Main(const std::vector<std::string>& arguments) {
    if (arguments.size() != 1) {
        std::fprintf(stderr, "zvbench_start FILE\n");
        return 2;
    }
    doubles::NoDialogs dialogs;
    forms::win32::Win32Backend backend(GetModuleHandleW(nullptr), &dialogs);
    BenchApplication application(backend, arguments[0]);
    application.Control().refresh(windows::kManagerMode, 0);
    if (application.Window() == nullptr) throw std::runtime_error("the window did not open");
    UpdateWindow(backend.Handle(*application.Window()));
    driver::PumpMessages();
    std::printf("%.3f\n", ProcessAgeMilliseconds());
    return 0;
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, zv::bench::Main);
}

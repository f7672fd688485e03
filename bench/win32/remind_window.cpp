// The window of reminders until it is painted: zvbench_remind_window FILE RUNS. Prints rows of the
// table.
#include "remind_window.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "doubles/no_dialogs.h"
#include "driver/win32/played_backend.h"
#include "forms/win32/win32_backend.h"
#include "win32/wide_main.h"

namespace zv::bench {
namespace {

int Main(const std::vector<std::string>& arguments) {
    if (arguments.size() != 2) {
        std::fprintf(stderr, "zvbench_remind_window FILE RUNS\n");
        return 2;
    }
    doubles::NoDialogs dialogs;
    forms::win32::Win32Backend backend(GetModuleHandleW(nullptr), &dialogs);
    const auto paint = [&](forms::Form& form) {
        UpdateWindow(backend.Handle(form));
        driver::PumpMessages();
    };
    MeasureRemindWindow(backend, arguments[0], std::atoi(arguments[1].c_str()), "window", paint);
    return 0;
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, zv::bench::Main);
}

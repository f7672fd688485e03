// The window of reminders until it is painted: zvbench_remind_window FILE RUNS. Prints rows of the
// table.
#include "remind_window.h"

#include <cstdlib>

#include "win32/screen.h"
#include "win32/wide_main.h"

namespace zv::bench {
namespace {

void Main(const Arguments& arguments) {
    Screen screen;
    const auto paint = [&](forms::Form& form) { screen.Paint(form); };
    MeasureRemindWindow(screen.backend, arguments[0], std::atoi(arguments[1].c_str()), "window",
                        paint);
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, "zvbench_remind_window FILE RUNS", zv::bench::Main);
}

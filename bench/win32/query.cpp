// The query window's list until it is painted: zvbench_query FILE RUNS. Prints rows of the table.
#include "query.h"

#include <cstdlib>

#include "win32/screen.h"
#include "win32/wide_main.h"

namespace zv::bench {
namespace {

void Main(const Arguments& arguments) {
    Screen screen;
    const auto paint = [&](forms::Form& form) { screen.Paint(form); };
    constexpr double kGoal = 2;
    MeasureQuery(screen.backend, arguments[0], std::atoi(arguments[1].c_str()), "window", paint,
                 kGoal);
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, "zvbench_query FILE RUNS", zv::bench::Main);
}

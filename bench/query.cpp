// The query window's list without a display: zvbench_query FILE RUNS.
#include "query.h"

#include "doubles/no_dialogs.h"
#include "forms/headless/headless_backend.h"
#include "program.h"

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_query FILE RUNS", [](const zv::bench::Arguments& a) {
            zv::doubles::NoDialogs dialogs;
            zv::forms::headless::HeadlessBackend backend(dialogs);
            constexpr double kGoal = 2;
            zv::bench::MeasureQuery(
                backend, a[0], std::stoi(a[1]), "no display", [](zv::forms::Form&) {}, kGoal);
        });
}

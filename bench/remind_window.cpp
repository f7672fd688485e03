// The window of reminders without a display: zvbench_remind_window FILE RUNS.
#include "remind_window.h"

#include "doubles/no_dialogs.h"
#include "forms/headless/headless_backend.h"
#include "program.h"

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_remind_window FILE RUNS", [](const zv::bench::Arguments& a) {
            zv::doubles::NoDialogs dialogs;
            zv::forms::headless::HeadlessBackend backend(dialogs);
            zv::bench::MeasureRemindWindow(backend, a[0], std::stoi(a[1]), "no display",
                                           [](zv::forms::Form&) {});
        });
}

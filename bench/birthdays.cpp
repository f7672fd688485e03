// The birthday list, without a display: zvbench_birthdays FILE RUNS.
//
// The floor is the same question put to the bare engine with its own functions.

#include "bench_application.h"
#include "doubles/no_dialogs.h"
#include "floors/raw_query.h"
#include "forms/headless/headless_backend.h"
#include "measure.h"
#include "program.h"

namespace {

using namespace zv::bench;

constexpr std::int16_t kDays = 10;

void Measure(const std::string& path, int runs) {
    zv::doubles::NoDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, path);
    auto& window = application.Manager();
    RawDatabase database(path);
    std::string cards;
    database.Read("select count(*) from cards", [&](const char* const* row) { cards = row[0]; });
    const std::string statement =
        BirthdayStatement(Day().IsoDate(), Day().AddDays(kDays).IsoDate());

    int found = 0;
    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            window.birthdays.ListBirthdays(kDays);
            return watch.Milliseconds();
        },
        ours,
        [&] {
            const Stopwatch watch;
            found = database.Read(statement, [](const char* const*) {});
            return watch.Milliseconds();
        },
        floor);
    if (found == 0 || found != window.birthdays.Grid1.DataRowCount()) {
        throw std::runtime_error("the floor finds other cards");
    }
    Print({"birthdays, " + std::to_string(found) + " of " + cards + " cards, with the grid",
           ours.Median(), floor.Median(), "ms", 2, 0, runs});
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_birthdays FILE RUNS",
        [](const zv::bench::Arguments& a) { Measure(a[0], std::stoi(a[1])); });
}

// The alert pass on an open connection: zvbench_alert FILE FLOORFILE DUE RUNS.
//
// Two floors: the whole table scanned by the bare engine, and one short range of an index that
// holds all columns, for which the greatest width of a window must be known beforehand.
#include <cstdlib>

#include "bench_application.h"
#include "doubles/no_dialogs.h"
#include "floors/raw_query.h"
#include "forms/headless/headless_backend.h"
#include "measure.h"
#include "program.h"

namespace {

using namespace zv::bench;

void Measure(const std::string& path, const std::string& floorPath, int due, int runs) {
    zv::doubles::NoDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, path);
    RawDatabase scanned(path);
    RawDatabase indexed(floorPath);
    const std::string day = Day().IsoDateTime();
    int items = 0;
    int widest = 0;
    scanned.Read("select count(*) from tTaskList",
                 [&](const char* const* row) { items = std::atoi(row[0]); });
    indexed.Read(
        "select cast(max(julianday(tDuring2)-julianday(tDuring1)) as integer) from "
        "tTaskList",
        [&](const char* const* row) { widest = std::atoi(row[0]); });

    int rows = 0;
    const auto count = [&](const char* const*) {};
    Series ours;
    Series range;
    Series scan;
    InTurn(
        runs,
        [&] {
            const double time = TimeOfAlertPass(application, rows);
            if (rows < due + 1) throw std::runtime_error("the alert pass shows too few items");
            return time;
        },
        ours,
        [&] {
            const Stopwatch watch;
            if (indexed.Read(BoundedAlertStatement(day, widest), count) != due) {
                throw std::runtime_error("the floor finds other items");
            }
            return watch.Milliseconds();
        },
        range);
    for (int run = 0; run < runs; ++run) {
        const Stopwatch watch;
        scanned.Read(AlertStatement(day), count);
        scan.Add(watch.Milliseconds());
    }
    if (rows - due > 3) throw std::runtime_error("the alert pass shows too many items");
    const std::string name =
        "alert pass, " + std::to_string(due) + " due of " + std::to_string(items);
    const double goal = due > 100 ? 10 : 5;
    Print({name + ", against one known range", ours.Median(), range.Median(), "ms", 0, goal, runs});
    Print({name + ", against a scan", ours.Median(), scan.Median(), "ms", 0, goal, runs});
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(count, values, "zvbench_alert FILE FLOORFILE DUE RUNS",
                                 [](const zv::bench::Arguments& a) {
                                     Measure(a[0], a[1], std::stoi(a[2]), std::stoi(a[3]));
                                 });
}

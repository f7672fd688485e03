// One look at what is due, on an open connection: zvbench_reminders FILE FLOORFILE DUE RUNS.
//
// The floor is one short range of an index that holds all columns, for which the greatest width of
// a window must be known beforehand, as for the alert pass.
#include <cstdlib>

#include "bench_day.h"
#include "doubles/engine_opener.h"
#include "floors/raw_query.h"
#include "measure.h"
#include "program.h"
#include "reminders/look.h"
#include "reminders/subjects.h"
#include "store/database.h"

namespace {

using namespace zv::bench;

void Measure(const std::string& path, const std::string& floorPath, int due, int runs) {
    zv::doubles::EngineOpener opener;
    zv::store::Database database(opener, [&] {
        zv::store::ConnectionSettings settings;
        settings.dataPath = path;
        return settings;
    });
    database.EnsureConnection();
    RawDatabase indexed(floorPath);
    const std::string day = Day().IsoDateTime();
    int items = 0;
    int widest = 0;
    indexed.Read("select count(*) from tTaskList",
                 [&](const char* const* row) { items = std::atoi(row[0]); });
    indexed.Read(
        "select cast(max(julianday(tDuring2)-julianday(tDuring1)) as integer) from "
        "tTaskList",
        [&](const char* const* row) { widest = std::atoi(row[0]); });

    zv::reminders::Circumstances circumstances;
    circumstances.whose = zv::reminders::Whose::All;
    circumstances.now = Day();
    circumstances.firstLook = Day();
    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            const auto subjects =
                zv::reminders::ReadSubjects(database, circumstances.now, circumstances.firstLook);
            const auto look = zv::reminders::LookAt(subjects, {}, circumstances);
            const double time = watch.Milliseconds();
            // What was overdue before the day is told by a number.
            if (subjects.size() < static_cast<std::size_t>(due) || look.due.empty()) {
                throw std::runtime_error("the look finds too few items");
            }
            return time;
        },
        ours,
        [&] {
            const Stopwatch watch;
            if (indexed.Read(BoundedAlertStatement(day, widest), [](const char* const*) {}) !=
                due) {
                throw std::runtime_error("the floor finds other items");
            }
            return watch.Milliseconds();
        },
        floor);
    const double goal = due > 100 ? 15 : 5;
    Print({"one look, " + std::to_string(due) + " due of " + std::to_string(items), ours.Median(),
           floor.Median(), "ms", 0, goal, runs});
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(count, values, "zvbench_reminders FILE FLOORFILE DUE RUNS",
                                 [](const zv::bench::Arguments& a) {
                                     Measure(a[0], a[1], std::stoi(a[2]), std::stoi(a[3]));
                                 });
}

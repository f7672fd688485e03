// Marking an item in a tree of many, without a display: zvbench_mark FILE RUNS.
//
// The floor is the one statement on the bare engine, prepared once as ours is; both wait for the
// disk. A copy of the database is written to.
#include <cstdlib>

#include "bench_application.h"
#include "copies.h"
#include "doubles/agreeing_dialogs.h"
#include "doubles/recorded_statements.h"
#include "floors/raw_query.h"
#include "forms/headless/headless_backend.h"
#include "measure.h"
#include "program.h"

namespace {

using namespace zv::bench;

constexpr int kTurns = 50;  ///< markings in one run

void Measure(const std::string& path, int runs) {
    const Copy copy(path);
    zv::doubles::AgreeingDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    zv::doubles::RecordedStatements statements;
    statements.tellsRows = true;
    BenchApplication application(backend, copy.Path(), &statements);
    auto& window = application.Manager();
    window.listing.LoadItemList("");
    const int nodes = window.tree.tvwTask.Count();

    RawDatabase database(copy.Path());
    int item = 0;
    database.Read("select max(fID) from tTaskList where tDone=0 and fType=0 and fID<=32767",
                  [&](const char* const* row) { item = std::atoi(row[0]); });
    const int node = window.tree.tvwTask.Find("Z" + std::to_string(item));
    window.selection.tvwTask_NodeClick(node);
    statements.Take();

    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            for (int i = 0; i < kTurns; i++) {
                window.completion.SetItemState(static_cast<std::int16_t>(i % 2));
            }
            return watch.Milliseconds() * 1000 / kTurns;
        },
        ours,
        [&] {
            const Stopwatch watch;
            for (int i = 0; i < kTurns; i++) database.RunKept(MarkStatement(item, 1 + i % 2, ""));
            return watch.Milliseconds() * 1000 / kTurns;
        },
        floor);
    if (statements.lines.size() != static_cast<std::size_t>(runs + 1) * kTurns) {
        throw std::runtime_error("marking took more than one statement, or none");
    }
    if (window.tree.tvwTask.Count() != nodes || window.tree.tvwTask.Image(node) != "task3" ||
        window.tree.tvwTask.Find("Z" + std::to_string(item)) != node) {
        throw std::runtime_error("the tree was filled again");
    }
    Print({"mark an item, one statement, tree of " + std::to_string(nodes), ours.Median(),
           floor.Median(), "us", 2, 0, runs});
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_mark FILE RUNS",
        [](const zv::bench::Arguments& a) { Measure(a[0], std::stoi(a[1])); });
}

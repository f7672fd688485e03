// Filling the tree with every item of a database, without a display: zvbench_list FILE RUNS.
#include "bench_application.h"
#include "doubles/no_dialogs.h"
#include "floors/bare_tree.h"
#include "floors/list_fill.h"
#include "forms/headless/headless_backend.h"
#include "measure.h"
#include "program.h"

namespace {

using namespace zv::bench;

void Measure(const std::string& path, int runs) {
    zv::doubles::NoDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, path);
    auto& window = application.Manager();
    RawDatabase database(path);
    BareTree bare;

    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            window.listing.LoadItemList("");
            return watch.Milliseconds();
        },
        ours,
        [&] {
            const Stopwatch watch;
            bare.Clear();
            FillFromQuery(
                database, ListStatement(), [&](char) { return bare.Add(-1, 0, 0, "group"); },
                [&](int group, int number, int image, const std::string& text) {
                    bare.Add(group, number, image, text);
                });
            return watch.Milliseconds();
        },
        floor);
    if (bare.Count() != window.tree.tvwTask.Count()) throw std::runtime_error("the trees differ");
    const std::string rows = std::to_string(bare.Count() - 3);
    Print({"list of " + rows + ", no display", ours.Median(), floor.Median(), "ms", 1.3, 0, runs});

    double bytes = 0;
    const auto& tree = window.tree.tvwTask;
    for (int node = tree.FirstRoot(); node >= 0; node = tree.NextInOrder(node)) {
        bytes += static_cast<double>(tree.Text(node).size());
    }
    const double nodes = bare.Count();
    Print({"memory a node, no display, " + rows, static_cast<double>(tree.MemoryBytes()) / nodes,
           // A parent, a number, an image, and the text with the place and length it needs.
           bytes / nodes + 3 * sizeof(int) + sizeof(void*) + sizeof(int), "bytes", 0, 0, 1});
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_list FILE RUNS",
        [](const zv::bench::Arguments& a) { Measure(a[0], std::stoi(a[1])); });
}

// What it costs to keep who did what: zvbench_history FILE RUNS.
//
// The floor is the same act on the same database without the table "zvHistory", where nothing is
// read of what a row held before. Both work on copies, both wait for the disk.
#include "copies.h"
#include "desk.h"
#include "measure.h"
#include "program.h"
#include "store/engines/engines.h"

namespace {

using namespace zv::bench;

constexpr int kTurns = 50;  ///< acts in one run

/// An own copy of a database and a manager on it.
struct Office {
    Office(const std::string& path, const std::string& name, bool history)
        : copy(path, name), desk(Prepared(copy.Path(), history)), tasks(desk.Tasks()) {}

    static const std::string& Prepared(const std::string& path, bool history) {
        if (!history) return path;
        RawDatabase(path).Run(std::string(zv::store::engines::Of("sqlite").sideTables));
        return path;
    }
    int Next() { return tasks.at(at++); }
    int Kept() { return desk.Number("select count(*) from zvHistory"); }

    Copy copy;
    Desk desk;
    std::vector<int> tasks;
    std::size_t at = 0;
};

double Mark(Office& office) {
    office.desk.Click(office.Next());
    const Stopwatch watch;
    office.desk.window.completion.SetItemState(static_cast<std::int16_t>(office.at % 2 + 1));
    return watch.Milliseconds();
}

double Delete(Office& office) {
    office.desk.Click(office.Next());
    const Stopwatch watch;
    office.desk.window.editing.DeleteItem();
    return watch.Milliseconds();
}

double Save(Office& office) {
    auto& window = office.desk.window;
    office.desk.Click(office.Next());
    window.editing.StartChangeItem(zv::items::ItemKind::Task);
    window.content.txtTaskCon.SetText("changed " + std::to_string(office.at));
    const Stopwatch watch;
    window.editing.cmdSave_Click();
    return watch.Milliseconds();
}

void Measure(const std::string& path, int runs) {
    Office with(path, "with", true);
    Office without(path, "without", false);
    const auto measure = [&](const std::string& what, double (*act)(Office&)) {
        const auto turns = [&](Office& office) {
            double time = 0;
            for (int i = 0; i < kTurns; i++) time += act(office);
            return time * 1000 / kTurns;
        };
        const int before = with.Kept();
        Series ours;
        Series floor;
        InTurn(
            runs, [&] { return turns(with); }, ours, [&] { return turns(without); }, floor);
        if (with.Kept() < before + (runs + 1) * kTurns) {
            throw std::runtime_error("not every act was kept");
        }
        Print(
            {what + ", with history and without", ours.Median(), floor.Median(), "us", 0, 0, runs});
    };
    measure("mark an item", Mark);
    measure("save an item", Save);
    measure("delete an item", Delete);
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_history FILE RUNS",
        [](const zv::bench::Arguments& a) { Measure(a[0], std::stoi(a[1])); });
}

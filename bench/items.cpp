// Working with items in a tree of many, without a display: zvbench_items show|delete|save FILE
// RUNS, zvbench_items search CARDFILE RUNS.
//
// The floors are the same statements on the bare engine. What writes, writes to a copy of the
// database; ours and the floor both wait for the disk then.
#include <cstring>

#include "copies.h"
#include "desk.h"
#include "floors/bare_tree.h"
#include "floors/list_fill.h"
#include "measure.h"
#include "program.h"

namespace {

using namespace zv::bench;
namespace windows = zv::windows;

constexpr int kTurns = 50;  ///< acts in one run

std::string RowStatement(int item) {
    return "select * from tTaskList where fID=" + std::to_string(item);
}

void MeasureShow(const std::string& path, int runs) {
    Desk desk(path);
    const std::vector<int> tasks = desk.Tasks();
    std::size_t at = 0;
    const auto next = [&] { return tasks[at++ % tasks.size()]; };
    std::size_t bytes = 0;

    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            for (int i = 0; i < kTurns; i++) desk.Click(next());
            return watch.Milliseconds() * 1000 / kTurns;
        },
        ours,
        [&] {
            const Stopwatch watch;
            for (int i = 0; i < kTurns; i++) {
                desk.raw.Read(RowStatement(next()), [&](const char* const* row) {
                    for (int column = 0; column < 19; column++) {
                        bytes += row[column] ? std::strlen(row[column]) : 0;
                    }
                });
            }
            return watch.Milliseconds() * 1000 / kTurns;
        },
        floor);
    if (bytes == 0 || desk.window.item.txtTitle2.Text().empty()) {
        throw std::runtime_error("no item was shown");
    }
    Print({"click to item shown, tree of " + std::to_string(desk.window.tree.tvwTask.Count()),
           ours.Median(), floor.Median(), "us", 0, 1000, runs});
}

void MeasureDelete(const std::string& path, int runs) {
    const Copy copy(path);
    Desk desk(copy.Path());
    const std::vector<int> tasks = desk.Tasks();
    const int nodes = desk.window.tree.tvwTask.Count();
    std::size_t at = 0;
    const auto next = [&] { return tasks.at(at++); };
    int deleted = 0;

    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            double time = 0;
            for (int i = 0; i < kTurns; i++) {
                desk.Click(next());
                const Stopwatch watch;
                desk.window.editing.DeleteItem();
                time += watch.Milliseconds();
                deleted++;
            }
            return time * 1000 / kTurns;
        },
        ours,
        [&] {
            const Stopwatch watch;
            for (int i = 0; i < kTurns; i++) {
                const std::string item = std::to_string(next());
                desk.raw.Run("delete from tTaskList where fID=" + item);
                // Ours shows the item behind it.
                desk.raw.Read(RowStatement(next()), [](const char* const*) {});
            }
            return watch.Milliseconds() * 1000 / kTurns;
        },
        floor);
    if (desk.window.tree.tvwTask.Count() != nodes - deleted) {
        throw std::runtime_error("the tree does not hold what is left");
    }
    Print({"delete an item and show the next, tree of " + std::to_string(nodes), ours.Median(),
           floor.Median(), "us", 2, 0, runs});
}

void MeasureSave(const std::string& path, int runs) {
    const Copy copy(path);
    Desk desk(copy.Path());
    windows::frmTaskMain& window = desk.window;
    const std::vector<int> tasks = desk.Tasks();
    BareTree bare;
    std::size_t at = 0;

    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            desk.Click(tasks.at(at++));
            window.editing.StartChangeItem(zv::items::ItemKind::Task);
            window.content.txtTaskCon.SetText("changed " + std::to_string(at));
            const Stopwatch watch;
            window.editing.cmdSave_Click();
            return watch.Milliseconds();
        },
        ours,
        [&] {
            const std::string item = std::to_string(tasks.at(at++));
            const Stopwatch watch;
            desk.raw.Run("update tTaskList set fContent='changed' where fID=" + item);
            bare.Clear();
            FillFromQuery(
                desk.raw, ListStatement(), [&](char) { return bare.Add(-1, 0, 0, "group"); },
                [&](int group, int number, int image, const std::string& text) {
                    bare.Add(group, number, image, text);
                });
            return watch.Milliseconds();
        },
        floor);
    if (bare.Count() != window.tree.tvwTask.Count() ||
        desk.Number("select count(*) from tTaskList where fContent like 'changed _%'") !=
            runs + 1) {
        throw std::runtime_error("the trees differ, or not every change was saved");
    }
    Print({"save to tree refreshed, " + std::to_string(bare.Count() - 3) + " items", ours.Median(),
           floor.Median(), "ms", 1.5, 0, runs});
}

void MeasureSearch(const std::string& path, int runs) {
    zv::doubles::AgreeingDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, path);
    auto& window = application.Manager();
    RawDatabase raw(path);
    std::string cards, code, part;
    raw.Read("select count(*) from cards", [&](const char* const* row) { cards = row[0]; });
    // In the middle, so that neither has found it at once.
    raw.Read("select CompCode,substr(CompName,2,3) from cards order by fID limit 1 offset " +
                 cards + "/2",
             [&](const char* const* row) {
                 code = row[0];
                 part = row[1];
             });

    const auto ours = [&](const std::string& text) {
        window.cards.txtCompSeek.SetText(text);
        zv::forms::KeyEvent enter{zv::forms::key::kEnter};
        const Stopwatch watch;
        window.cards.txtCompSeek_KeyDown(enter);
        const double time = watch.Milliseconds();
        if (window.cards.cboComp2.ListCount() == 0) throw std::runtime_error("no card was found");
        return time;
    };
    constexpr int kListed = 101;
    const auto floor = [&](const std::string& condition) {
        const Stopwatch watch;
        raw.Read("select count(*) from cards where CompCode='" + code + "'",
                 [](const char* const*) {});
        std::string first;
        raw.Read("select fID,CompName from cards where " + condition +
                     " order by CompName,Name limit " + std::to_string(kListed),
                 [&](const char* const* row) {
                     if (first.empty()) first = row[0];
                 });
        raw.Read("select * from cards where fID=" + first, [](const char* const*) {});
        return watch.Milliseconds();
    };
    const auto measure = [&](const std::string& name, const std::string& text,
                             const std::string& condition) {
        Series oursSeries;
        Series floorSeries;
        InTurn(
            runs, [&] { return ours(text); }, oursSeries, [&] { return floor(condition); },
            floorSeries);
        Print({"card by " + name + ", " + cards + " cards", oursSeries.Median(),
               floorSeries.Median(), "ms", 1.3, 0, runs});
    };
    measure("code", code, "CompCode='" + code + "'");
    measure("a part of the name", part,
            "(CompCode like '%" + part + "%' or CompName like '%" + part + "%') and CompName<>''");
}

void MeasureNamed(const std::string& what, const std::string& path, int runs) {
    if (what == "show") return MeasureShow(path, runs);
    if (what == "delete") return MeasureDelete(path, runs);
    if (what == "save") return MeasureSave(path, runs);
    if (what == "search") return MeasureSearch(path, runs);
    throw std::invalid_argument("show, delete, save or search, not " + what);
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_items show|delete|save|search FILE RUNS",
        [](const zv::bench::Arguments& a) { MeasureNamed(a[0], a[1], std::stoi(a[2])); });
}

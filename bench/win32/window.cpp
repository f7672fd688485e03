// Filling the tree of the shown task manager with every item of a database, against the bare query
// and a plain tree control in a plain window: zvbench_window ours|floor FILE RUNS.
//
// One of them a process: what the other has taken and freed makes the heap slower for both. Prints
// the milliseconds from empty, filled again with the same and with every title changed (medians),
// the bytes a node, and the rows.
#include <cstdio>
#include <cstdlib>

#include "bench_application.h"
#include "copies.h"
#include "floors/bare_window.h"
#include "floors/list_fill.h"
#include "measure.h"
#include "win32/process_age.h"
#include "win32/screen.h"
#include "win32/wide_main.h"

namespace zv::bench {
namespace {

class Floor {
 public:
    explicit Floor(const std::string& path) : database_(path) { window_.Show(); }

    double Fill() {
        const Stopwatch watch;
        window_.BeginFill();
        window_.Clear();
        // All rows first: with the engine and the tree taking memory in turn both get slow.
        std::vector<Item> items;
        int count = 0;
        rows_ = FillFromQuery(
            database_, ListStatement(), [&](char) { return count++; },
            [&](int group, int number, int image, const std::string& text) {
                items.push_back({group, number, image, text});
            });
        HTREEITEM groups[3] = {};
        for (int i = 0; i < count; ++i) groups[i] = window_.Add(nullptr, 0, 0, "group");
        for (const Item& item : items) {
            window_.Add(groups[item.group], item.image, item.number, item.text);
        }
        for (int i = 0; i < count; ++i) window_.Expand(groups[i]);
        window_.EndFill();
        window_.Paint();
        return watch.Milliseconds();
    }
    double Clear() {
        const Stopwatch watch;
        window_.BeginFill();
        window_.Clear();
        window_.EndFill();
        window_.Paint();
        return watch.Milliseconds();
    }
    int Rows() const { return rows_; }

 private:
    struct Item {
        int group;
        int number;
        int image;
        std::string text;
    };

    RawDatabase database_;
    BareWindow window_;
    int rows_ = 0;
};

class Ours {
 public:
    explicit Ours(const std::string& path) : application_(screen_.backend, path) {
        application_.Control().refresh(windows::kManagerMode, 0);
        if (application_.Window() == nullptr) throw std::runtime_error("the window did not open");
        Clear();
    }

    double Fill() { return Load(""); }
    double Clear() { return Load("a.fID<0"); }
    int Rows() {
        const auto& tree = application_.Window()->tree.tvwTask;
        int groups = 0;
        for (int node = tree.FirstRoot(); node >= 0; node = tree.NextSibling(node)) ++groups;
        return tree.Count() - groups;
    }

 private:
    double Load(const std::string& where) {
        const Stopwatch watch;
        application_.Window()->listing.LoadItemList(where);
        screen_.Paint(*application_.Window());
        return watch.Milliseconds();
    }

    Screen screen_;
    BenchApplication application_;
};

template <class Subject>
void Measure(const std::string& path, int runs) {
    const Copy copy(path);
    Subject subject(copy.Path());
    const double before = WorkingSetBytes();
    subject.Fill();
    const double bytes = (WorkingSetBytes() - before) / subject.Rows();
    Series again;
    Series renamed;
    RawDatabase others(copy.Path());
    for (int run = 0; run < runs; ++run) {
        others.Run("update tTaskList set taskTitle='" + std::to_string(run) + " '||taskTitle");
        renamed.Add(subject.Fill());
    }
    Series fromEmpty;
    for (int run = 0; run < runs; ++run) again.Add(subject.Fill());
    for (int run = 0; run < runs; ++run) {
        subject.Clear();
        fromEmpty.Add(subject.Fill());
    }
    std::printf("%.3f %.3f %.3f %.1f %d\n", fromEmpty.Median(), again.Median(), renamed.Median(),
                bytes, subject.Rows());
}

void Main(const Arguments& arguments) {
    if (arguments[0] != "ours" && arguments[0] != "floor") {
        throw std::invalid_argument("ours or floor, not " + arguments[0]);
    }
    const int runs = std::atoi(arguments[2].c_str());
    if (arguments[0] == "ours") {
        Measure<Ours>(arguments[1], runs);
    } else {
        Measure<Floor>(arguments[1], runs);
    }
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, "zvbench_window ours|floor FILE RUNS",
                               zv::bench::Main);
}

// Filling the tree of the shown task manager with every item of a database, against the bare query
// and a plain tree control in a plain window: zvbench_window FILE RUNS.
#include <cstdio>
#include <cstdlib>

#include "floors/bare_window.h"
#include "floors/list_fill.h"
#include "forms/win32/win32_backend.h"
#include "measure.h"
#include "stage.h"
#include "win32/process_age.h"
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
        HTREEITEM groups[3] = {};
        int count = 0;
        rows_ = FillFromQuery(
            database_, ListStatement(),
            [&](char) { return groups[count++] = window_.Add(nullptr, 0, 0, "group"); },
            [&](HTREEITEM group, int number, int image, const std::string& text) {
                window_.Add(group, image, number, text);
            });
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
    RawDatabase database_;
    BareWindow window_;
    int rows_ = 0;
};

class Ours {
 public:
    explicit Ours(const std::string& path)
        : backend_(GetModuleHandleW(nullptr), &dialogs_), stage_(backend_, path) {
        stage_.Control().refresh(mainwindow::kManagerMode, 0);
        if (stage_.Window() == nullptr) throw std::runtime_error("the window did not open");
        Clear();
    }

    double Fill() { return Load(""); }
    double Clear() { return Load("a.fID<0"); }
    int Nodes() { return stage_.Window()->tvwTask.Count(); }

 private:
    double Load(const std::string& where) {
        const Stopwatch watch;
        stage_.Window()->list.LoadItemList(where);
        UpdateWindow(backend_.Handle(*stage_.Window()));
        backend_.PumpMessages();
        return watch.Milliseconds();
    }

    NoDialogs dialogs_;
    forms::win32::Win32Backend backend_;
    Stage stage_;
};

void Measure(const std::string& path, int runs) {
    // Memory first, while nothing that was freed can be taken again.
    auto ours = std::make_unique<Ours>(path);
    double before = WorkingSetBytes();
    ours->Fill();
    const int nodes = ours->Nodes();
    const double oursBytes = (WorkingSetBytes() - before) / nodes;
    auto floor = std::make_unique<Floor>(path);
    before = WorkingSetBytes();
    floor->Fill();
    const double floorBytes = (WorkingSetBytes() - before) / nodes;
    const std::string rows = std::to_string(floor->Rows());
    if (nodes < floor->Rows()) throw std::runtime_error("the trees differ");

    Series oursRefill;
    Series floorRefill;
    InTurn(
        runs, [&] { return ours->Fill(); }, oursRefill, [&] { return floor->Fill(); }, floorRefill);
    Series oursFill;
    Series floorFill;
    InTurn(
        runs,
        [&] {
            ours->Clear();
            return ours->Fill();
        },
        oursFill,
        [&] {
            floor->Clear();
            return floor->Fill();
        },
        floorFill);
    Print({"list of " + rows + ", window, from empty", oursFill.Median(), floorFill.Median(), "ms",
           1.3, 0, runs});
    Print({"list of " + rows + ", window, filled again", oursRefill.Median(), floorRefill.Median(),
           "ms", 1.0, 0, runs});
    Print({"memory a node, window, " + rows, oursBytes, floorBytes, "bytes", 0, 0, 1});
}

int Main(const std::vector<std::string>& arguments) {
    if (arguments.size() != 2) {
        std::fprintf(stderr, "zvbench_window FILE RUNS\n");
        return 2;
    }
    Measure(arguments[0], std::atoi(arguments[1].c_str()));
    return 0;
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, zv::bench::Main);
}

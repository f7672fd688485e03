// Works with the real windows for many rounds and reports whether anything grows:
// zvSoak FOLDER ROUNDS, where FOLDER holds begin.zvs and round.zvs.
//
// After each round no window may be left and no handle that the window layer owns may be alive
// beyond those after the first; after the last nothing at all. Memory and the system's handles are
// compared between the second quarter of the rounds and the last, after the first has warmed
// everything up. Prints a line for each tenth, and "N passed, N failed"; the exit status is 0 when
// nothing failed.
#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "base/text.h"
#include "forms/form.h"
#include "forms/win32/common_controls.h"
#include "forms/win32/handles.h"
#include "live_heap.h"
#include "playback.h"
#include "scenario_stage.h"

namespace zv::soak {
namespace {

namespace fs = std::filesystem;

/// Between the two quarters: pages come in coarsely, live blocks are exact.
constexpr double kMostPages = 2.0 * 1024 * 1024;
constexpr double kMostBlocks = 16.0 * 1024;
constexpr int kItems = 300;
constexpr int kCards = 50;
constexpr int kLeastRounds = 20;

struct Reading {
    double memory = 0;  ///< bytes that only this process has, or the pages in use
    double heap = 0;    ///< bytes of the live blocks of its heaps
    int handles = 0;    ///< of the system: files, events, threads
    int owned = 0;      ///< of the window layer: windows, fonts, bitmaps, menus
    int windows = 0;    ///< top-level ones of this thread
    double kept = 0;    ///< bytes that the system has kept of labels that are gone
};

BOOL CALLBACK Count(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

int labelsMade = 0;
/// Wine's labels leave some bytes behind each; Windows' do not.
double keptPerLabel = 0;

LRESULT CALLBACK CountLabels(int code, WPARAM w, LPARAM l) {
    if (code == HCBT_CREATEWND) {
        wchar_t name[16] = {};
        GetClassNameW(reinterpret_cast<HWND>(w), name, 16);
        if (lstrcmpiW(name, L"Static") == 0) labelsMade++;
    }
    return CallNextHookEx(nullptr, code, w, l);
}

/// What one label of the system's leaves behind: made and destroyed with nothing of ours at work.
double MeasureKeptPerLabel() {
    const forms::win32::CommonControls controls(GetModuleHandleW(nullptr));
    const forms::win32::ManifestInForce manifest(controls.Manifest());
    constexpr int kLabels = 64;
    double before = 0;
    for (int i = 0; i < 2 * kLabels; i++) {
        if (i == kLabels) before = test::LiveHeap();
        const HWND label =
            CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
        SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(SYSTEM_FONT)), 0);
        DestroyWindow(label);
    }
    return std::max(0.0, test::LiveHeap() - before) / kLabels;
}

Reading Read() {
    Reading reading;
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                         sizeof memory);
    // Wine knows no private bytes.
    reading.memory =
        static_cast<double>(memory.PrivateUsage > 0 ? memory.PrivateUsage : memory.WorkingSetSize);
    reading.heap = test::LiveHeap();
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    reading.handles = static_cast<int>(handles);
    reading.owned = forms::win32::LiveHandles();
    reading.kept = labelsMade * keptPerLabel;
    EnumThreadWindows(GetCurrentThreadId(), Count, reinterpret_cast<LPARAM>(&reading.windows));
    return reading;
}

std::string ReadFile(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(stream), {}};
}

// `playing`: whose lines go on while a menu is open.
void Play(script::ScenarioStage& stage, script::Playback*& playing, const std::string& text,
          const std::string& name) {
    script::Playback playback(script::CompileScript(text));
    playing = &playback;
    playback.Run(stage);
    playing = nullptr;
    if (playback.Failed()) {
        throw std::runtime_error(name + ":" + std::to_string(playback.FailedLine()) + ": " +
                                 playback.Reason());
    }
}

void AddRows(script::HostDatabase& host) {
    for (int i = 0; i < kItems; i++) {
        host.Execute(
            "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) values(" +
            std::to_string(i % 2 * 2) + ",'项目 " + std::to_string(i) +
            "','2003-03-07 00:00:00','2003-03-05 00:00:00','2003-03-09 00:00:00'," +
            std::to_string(i % 3) + ")");
    }
    for (int i = 0; i < kCards; i++) {
        // Every fifth has a birthday in the coming five days.
        host.Execute("insert into cards(CompCode,CompName,Name,Birthday) values('C" +
                     std::to_string(i) + "','公司 " + std::to_string(i) + "','人 " +
                     std::to_string(i) + "','1970-0" + (i % 5 == 0 ? "3-09" : "8-09") +
                     " 00:00:00')");
    }
}

/// Mean of a quarter of the readings, 1 to 4.
template <typename Value>
double Quarter(const std::vector<Reading>& readings, std::size_t quarter, Value Reading::*value) {
    const std::size_t begin = readings.size() * (quarter - 1) / 4;
    const std::size_t end = readings.size() * quarter / 4;
    double sum = 0;
    for (std::size_t i = begin; i < end; i++) sum += static_cast<double>(readings[i].*value);
    return sum / static_cast<double>(end - begin);
}

class Verdict {
 public:
    void Check(const char* name, bool good) {
        (good ? passed_ : failed_)++;
        if (!good) std::printf("FAIL %s\n", name);
    }
    int Report() const {
        std::printf("%d passed, %d failed\n", passed_, failed_);
        return failed_ == 0 ? 0 : 1;
    }

 private:
    int passed_ = 0;
    int failed_ = 0;
};

std::vector<Reading> PlayRounds(const fs::path& scripts, int rounds, const fs::path& folder) {
    const std::string round = ReadFile(scripts / "round.zvs");
    const auto engine = script::MakeScriptEngine("embedded");
    script::Playback* playing = nullptr;
    script::ScenarioStage* played = nullptr;
    script::ScenarioStage stage(
        folder, script::BackendKind::Win32, *engine,
        {.modal =
             [](forms::Form& form) { throw std::runtime_error("a modal window: " + form.Name()); },
         .menu =
             [&] {
                 if (playing && played) playing->RunInMenu(*played);
             }});
    played = &stage;
    Play(stage, playing, ReadFile(scripts / "begin.zvs"), "begin.zvs");
    AddRows(stage.host);

    std::vector<Reading> readings;
    // Room for all at once: what is measured must not grow with the measuring.
    readings.reserve(static_cast<std::size_t>(rounds));
    for (int i = 1; i <= rounds; i++) {
        Play(stage, playing, text::Replace(round, "NEW", std::to_string(kItems + i)), "round.zvs");
        readings.push_back(Read());
        const Reading& now = readings.back();
        if (i == 1 || i % std::max(rounds / 10, 1) == 0) {
            std::printf(
                "round %d: %.2f MB, %.1f KB of live blocks (%.1f KB kept by labels), "
                "%d system handles, %d owned handles, %d windows\n",
                i, now.memory / 1048576, now.heap / 1024, now.kept / 1024, now.handles, now.owned,
                now.windows);
            std::fflush(stdout);
        }
    }
    return readings;
}

int Run(const fs::path& scripts, int rounds, const fs::path& folder) {
    const forms::win32::Hook hook(
        SetWindowsHookExW(WH_CBT, CountLabels, nullptr, GetCurrentThreadId()));
    const int before = forms::win32::LiveHandles();
    const std::vector<Reading> readings = PlayRounds(scripts, rounds, folder);

    Verdict verdict;
    const auto growth = [&](double Reading::*value) {
        return Quarter(readings, 4, value) - Quarter(readings, 2, value);
    };
    const double kept = growth(&Reading::kept);
    const double pages = growth(&Reading::memory) - kept;
    const double blocks = growth(&Reading::heap) - kept;
    std::printf(
        "between the second quarter and the last: %+.1f KB, %+.1f KB of live blocks; kept by "
        "labels besides: %.1f KB\n",
        pages / 1024, blocks / 1024, kept / 1024);
    verdict.Check("memory is flat", pages < kMostPages);
    verdict.Check("live blocks are flat", blocks < kMostBlocks);
    // Wine does not count them.
    if (readings.front().handles > 0) {
        verdict.Check("the system's handles are flat", Quarter(readings, 4, &Reading::handles) <=
                                                           Quarter(readings, 2, &Reading::handles));
    }
    const auto same = [&](int Reading::*value) {
        return std::all_of(readings.begin(), readings.end(), [&](const Reading& reading) {
            return reading.*value == readings.front().*value;
        });
    };
    verdict.Check("no handle of the window layer is left", same(&Reading::owned));
    verdict.Check("no window is left", same(&Reading::windows));
    verdict.Check("nor any when all is over", forms::win32::LiveHandles() == before);
    return verdict.Report();
}

}  // namespace
}  // namespace zv::soak

int wmain(int count, wchar_t** values) {
    const int rounds = count == 3 ? _wtoi(values[2]) : 0;
    if (rounds < zv::soak::kLeastRounds) {
        std::fprintf(stderr, "zvSoak FOLDER ROUNDS, at least %d rounds\n", zv::soak::kLeastRounds);
        return 2;
    }
    namespace fs = std::filesystem;
    const fs::path folder =
        fs::temp_directory_path() / ("zvsoak-" + std::to_string(GetCurrentProcessId()));
    // Process numbers come again: a run that was cut short may have left its files.
    fs::remove_all(folder);
    fs::create_directories(folder);
    int status = 1;
    zv::soak::keptPerLabel = zv::soak::MeasureKeptPerLabel();
    try {
        status = zv::soak::Run(values[1], rounds, folder);
    } catch (const zv::script::ScriptError& error) {
        std::printf("FAIL line %d: %s\n0 passed, 1 failed\n", error.Line(), error.Reason().c_str());
    } catch (const std::exception& error) {
        std::printf("FAIL %s\n0 passed, 1 failed\n", error.what());
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return status;
}

// Plans: zvbench_plans FOLDER RUNS. The occurrences of a plan against the bare calendar loop, the
// generation of the longest daily plan against the same rows through one prepared statement, and
// the plan editor from its opening until it takes input, without a display.
#include <sqlite3.h>

#include <ctime>
#include <filesystem>

#include "bench_application.h"
#include "doubles/agreeing_dialogs.h"
#include "doubles/no_dialogs.h"
#include "floors/calendar_loop.h"
#include "floors/raw_query.h"
#include "forms/headless/headless_backend.h"
#include "measure.h"
#include "plans/occurrences.h"
#include "program.h"
#include "store/sqlite/create_database.h"
#include "windows/generation/boxes.h"
#include "windows/plan_editor/frm_task_set.h"

namespace {

using namespace zv::bench;
using zv::plans::Plan;

constexpr int kPlan = 17;
constexpr char kTitle[] = "每日巡检并提交值班记录";
constexpr char kContent[] = "检查设备运行状态, 填写值班日志, 异常情况报告负责人.";

/// The last day of January, or every day, of six calendar years, the most that a plan may span.
Plan LongestPlan(int kind) {
    Plan plan;
    plan.taskId = kPlan;
    plan.begin = zv::DateTime(2021, 1, kind == zv::plans::circle::kDaily ? 1 : 31);
    plan.end = zv::DateTime(2026, 12, 31);
    plan.circleType = kind;
    plan.month = 1;
    plan.day = 31;
    plan.week = plan.begin.Weekday() - 1;
    return plan;
}

Dates OfPlan(const Plan& plan) {
    zv::plans::Occurrences occurrences(plan);
    Dates dates;
    while (const auto date = occurrences.Next()) {
        dates.sum += date->Seconds();
        ++dates.count;
    }
    return dates;
}

/// Nanoseconds an occurrence; the work is repeated until it takes long enough to be timed.
template <class Work>
double TimeOfOne(const Work& work) {
    static volatile std::int64_t sink = 0;
    const std::int64_t wanted = 3'000'000;
    std::int64_t done = 0;
    const Stopwatch watch;
    while (done < wanted) {
        const Dates dates = work();
        sink = sink + dates.sum;
        done += dates.count;
    }
    return watch.Milliseconds() * 1e6 / static_cast<double>(done);
}

template <class Floor>
void MeasureOccurrences(const std::string& name, int kind, const Floor& bare, int runs) {
    const Plan plan = LongestPlan(kind);
    if (OfPlan(plan).count != bare().count) throw std::runtime_error("other dates: " + name);
    Series ours;
    Series floor;
    InTurn(
        runs, [&] { return TimeOfOne([&] { return OfPlan(plan); }); }, ours,
        [&] { return TimeOfOne(bare); }, floor);
    Print({"an occurrence, " + name, ours.Median(), floor.Median(), "ns", 2, 0, runs});
}

/// The plan's rows through one prepared statement, each its own commit, in the journal mode of the
/// system; every text is at hand beforehand.
class BareInsert {
 public:
    BareInsert(const std::string& path, const Plan& plan) {
        sqlite3* handle = nullptr;
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                        nullptr);
        database_.reset(handle);
        Run("pragma journal_mode=wal");
        Run("pragma synchronous=full");
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(handle,
                                 "insert into tTaskList(TaskID,taskTitle,fContent,tDone,taskTime,"
                                 "tDuring1,tDuring2) values(?,?,?,0,?,?,?)",
                                 -1, &statement, nullptr));
        insert_.reset(statement);
        for (zv::plans::Occurrences dates(plan); const auto date = dates.Next();) {
            dates_.push_back(date->IsoDateTime());
        }
    }
    void Insert() {
        sqlite3_stmt* insert = insert_.get();
        for (const std::string& date : dates_) {
            sqlite3_bind_int(insert, 1, kPlan);
            sqlite3_bind_text(insert, 2, kTitle, -1, SQLITE_STATIC);
            sqlite3_bind_text(insert, 3, kContent, -1, SQLITE_STATIC);
            for (const int parameter : {4, 5, 6}) {
                sqlite3_bind_text(insert, parameter, date.data(), static_cast<int>(date.size()),
                                  SQLITE_STATIC);
            }
            if (sqlite3_step(insert) != SQLITE_DONE) Check(SQLITE_ERROR);
            sqlite3_reset(insert);
        }
    }
    std::size_t Rows() const { return dates_.size(); }

 private:
    void Run(const char* sql) {
        Check(sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr));
    }
    void Check(int code) {
        if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database_.get()));
    }
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3, Close> database_;
    std::unique_ptr<sqlite3_stmt, Close> insert_;
    std::vector<std::string> dates_;
};

/// Both begin with an empty table of items and an empty log.
void MeasureGeneration(const std::string& path, int runs) {
    zv::doubles::AgreeingDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, path);
    zv::Session& session = application.GetSession();
    BareInsert bare(path, LongestPlan(zv::plans::circle::kDaily));
    RawDatabase host(path);
    const auto timed = [&](const auto& work, Series& processor) {
        host.Run("delete from tTaskList");
        host.Run("pragma wal_checkpoint(truncate)");
        const std::clock_t used = std::clock();
        const Stopwatch watch;
        work();
        const double time = watch.Milliseconds();
        processor.Add(1000.0 * static_cast<double>(std::clock() - used) / CLOCKS_PER_SEC);
        std::size_t rows = 0;
        host.Read("select count(*) from tTaskList where tDuring1=taskTime and tDuring2=taskTime",
                  [&](const char* const* row) { rows = std::strtoul(row[0], nullptr, 10); });
        if (rows != bare.Rows()) throw std::runtime_error("rows are missing");
        return time;
    };
    Series ours;
    Series oursProcessor;
    Series floor;
    Series floorProcessor;
    InTurn(
        runs,
        [&] {
            return timed([&] { zv::windows::GenerateTaskList(session, std::to_string(kPlan)); },
                         oursProcessor);
        },
        ours, [&] { return timed([&] { bare.Insert(); }, floorProcessor); }, floor);
    const std::string name = "generation of " + std::to_string(bare.Rows()) + " rows";
    Print({name, ours.Median(), floor.Median(), "ms", 1.5, 0, runs});
    Print({name + ", processor time", oursProcessor.Median(), floorProcessor.Median(), "ms", 0, 0,
           runs});
}

void MeasureEditor(const std::string& path, int runs) {
    zv::doubles::NoDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, path);
    Series ours;
    for (int run = 0; run <= runs; ++run) {
        const Stopwatch watch;
        application.Control().refresh(2, 0);
        if (run > 0) ours.Add(watch.Milliseconds());
        const auto* editor = application.GetSession().windows.Find<zv::windows::frmTaskSet>(
            zv::windows::frmTaskSet::kName);
        if (editor == nullptr || !editor->IsShown() || editor->txtTaskID.Text() != "18") {
            throw std::runtime_error("the plan editor is not ready");
        }
        application.UnloadWindows();
    }
    Print({"plan editor, no display", ours.Median(), 0, "ms", 0, 0, runs});
}

std::string MakeDatabase(const std::string& folder) {
    const std::string path = folder + "/plans.db";
    for (const char* end : {"", "-wal", "-shm"}) std::filesystem::remove(path + end);
    zv::store::CreateSqliteDatabase(path);
    const Plan plan = LongestPlan(zv::plans::circle::kDaily);
    RawDatabase(path).Run(
        "insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,"
        "taskday,TaskWeek,Type,TypeValue,Content) values(" +
        std::to_string(kPlan) + ",'" + kTitle + "','" + plan.begin.IsoDateTime() + "','" +
        plan.end.IsoDateTime() + "',2,1,1,1,1,3,0,'" + kContent + "')");
    return path;
}

void Measure(const std::string& folder, int runs) {
    namespace circle = zv::plans::circle;
    MeasureOccurrences(
        "every day", circle::kDaily, [] { return EveryDays(1, 1); }, runs);
    MeasureOccurrences(
        "every week", circle::kWeekly, [] { return EveryDays(31, 7); }, runs);
    MeasureOccurrences(
        "every month", circle::kMonthly, [] { return EveryMonths(1); }, runs);
    MeasureOccurrences(
        "every year", circle::kYearly, [] { return EveryMonths(12); }, runs);
    const std::string path = MakeDatabase(folder);
    MeasureGeneration(path, runs);
    MeasureEditor(path, runs);
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(
        count, values, "zvbench_plans FOLDER RUNS",
        [](const zv::bench::Arguments& a) { Measure(a[0], std::stoi(a[1])); });
}

// The system on a PostgreSQL server, against the server's own client in the same run:
// zvbench_server list|generate|alert RUNS. The environment names the server (ZV_TEST_POSTGRESQL
// and the client's own variables); its database has the tables, and for "list" and "alert" the
// items.
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "bench_application.h"
#include "copies.h"
#include "doubles/agreeing_dialogs.h"
#include "doubles/engine_opener.h"
#include "doubles/no_dialogs.h"
#include "floors/raw_query.h"
#include "floors/server_client.h"
#include "forms/headless/headless_backend.h"
#include "measure.h"
#include "plans/occurrences.h"
#include "program.h"
#include "store/dialect/translator.h"
#include "store/engines/engines.h"
#include "windows/generation/boxes.h"

namespace {

using namespace zv::bench;

constexpr const char* kPlan = "17";

std::string Server() {
    const char* text = std::getenv("ZV_TEST_POSTGRESQL");
    if (text == nullptr) throw std::runtime_error("ZV_TEST_POSTGRESQL names no server");
    return text;
}

std::unique_ptr<zv::store::Connection> Connect() {
    zv::doubles::EngineOpener opener;
    return opener.Open({1, Server(), {}, {}, {}});
}

/// A statement as it goes over the wire.
std::string OnTheWire(const std::string& statement) {
    zv::store::dialect::SchemaInfo schema;
    zv::store::odbc::OdbcOptions options = zv::store::odbc::OptionsFor({1, Server(), {}, {}, {}});
    options.translate = false;
    const auto connection = zv::store::odbc::OpenOdbc(options);
    const auto columns =
        connection->Open("select column_name,udt_name from information_schema.columns",
                         zv::store::CursorType::Static, zv::store::LockType::ReadOnly);
    for (; !columns->Eof(); columns->MoveNext()) {
        schema.AddColumn(columns->Field(0).ToText(), columns->Field(1).ToText());
    }
    return zv::store::dialect::Translate(statement, schema,
                                         *zv::store::engines::Of("postgresql").driverDialect)
        .sql;
}

double MemoryMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void MeasureList(int runs) {
    const std::string statement = ListStatement();
    const std::string sent = OnTheWire(statement);
    const auto connection = Connect();
    zv::doubles::NoDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, Server());
    auto& window = application.Manager();
    int rows = 0;
    Series read;
    Series shown;
    Series floor;
    InTurn(
        runs,
        [&] {
            const Stopwatch watch;
            rows = 0;
            const auto result = connection->Open(statement, zv::store::CursorType::ForwardOnly,
                                                 zv::store::LockType::ReadOnly);
            for (; !result->Eof(); result->MoveNext()) rows++;
            return watch.Milliseconds();
        },
        read, [&] { return ClientTime(sent); }, floor);
    for (int run = 0; run < runs; run++) {
        const Stopwatch watch;
        window.listing.LoadItemList("");
        shown.Add(watch.Milliseconds());
    }
    if (window.tree.tvwTask.Count() != rows + 3) throw std::runtime_error("the tree lacks rows");
    const std::string name = "server, list of " + std::to_string(rows);
    Print({name + ", rows read", read.Median(), floor.Median(), "ms", 1.3, 0, runs});
    Print({name + ", in the tree", shown.Median(), floor.Median(), "ms", 0, 0, runs});
    Print({name + ", memory of the process", MemoryMegabytes(), 0, "MB", 0, 0, 1});
}

/// The longest daily plan; the floor inserts the same rows, each its own commit.
void MeasureGeneration(int runs) {
    zv::plans::Plan plan;
    plan.begin = zv::DateTime(2021, 1, 1);
    plan.end = zv::DateTime(2026, 12, 31);
    plan.circleType = zv::plans::circle::kDaily;
    const auto connection = Connect();
    connection->Execute(std::string("delete from tTaskSet where TaskID=") + kPlan);
    connection->Execute(
        std::string("insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,"
                    "taskMonth,taskday,TaskWeek,Type,TypeValue,Content) values(") +
        kPlan + ",'每日巡检','2021-01-01','2026-12-31',2,1,1,1,1,3,0,'检查设备运行状态')");
    const auto path = std::filesystem::temp_directory_path() / "zvbench_rows.sql";
    int rows = 0;
    {
        std::ofstream file(path);
        zv::plans::Occurrences dates(plan);
        for (; const auto date = dates.Next(); rows++) {
            const std::string day = "'" + date->IsoDateTime() + "'";
            file << "insert into ttasklist(taskid,tasktitle,fcontent,tdone,tasktime,tduring1,"
                    "tduring2) values("
                 << kPlan << ",'每日巡检','检查设备运行状态',0," << day << ',' << day << ',' << day
                 << ") returning fid;\n";
        }
    }
    zv::doubles::AgreeingDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, Server());
    const std::string count = std::string("select count(*) from tTaskList where TaskID=") + kPlan;
    const auto timed = [&](const auto& work) {
        connection->Execute(std::string("delete from tTaskList where TaskID=") + kPlan);
        const double time = work();
        const auto result = connection->Open(count, zv::store::CursorType::ForwardOnly,
                                             zv::store::LockType::ReadOnly);
        if (result->Field(0).ToInt32() != rows) throw std::runtime_error("rows are missing");
        return time;
    };
    Series ours;
    Series floor;
    InTurn(
        runs,
        [&] {
            return timed([&] {
                const Stopwatch watch;
                zv::windows::GenerateTaskList(application.GetSession(), kPlan);
                return watch.Milliseconds();
            });
        },
        ours, [&] { return timed([&] { return ClientTimeOfFile(path.string()); }); }, floor);
    std::filesystem::remove(path);
    Print({"server, generation of " + std::to_string(rows) + " rows", ours.Median(), floor.Median(),
           "ms", 1.3, 0, runs});
}

void MeasureAlert(int runs) {
    const std::string sent = OnTheWire(AlertStatement(Day().IsoDateTime()));
    zv::doubles::NoDialogs dialogs;
    zv::forms::headless::HeadlessBackend backend(dialogs);
    BenchApplication application(backend, Server());
    int nodes = 0;
    Series ours;
    Series floor;
    InTurn(
        runs, [&] { return TimeOfAlertPass(application, nodes); }, ours,
        [&] { return ClientTime(sent); }, floor);
    const auto connection = Connect();
    const auto all =
        connection->Open("select count(*) from tTaskList", zv::store::CursorType::ForwardOnly,
                         zv::store::LockType::ReadOnly);
    Print({"server, alert pass, " + std::to_string(nodes) + " nodes of " + all->Field(0).ToText() +
               " items",
           ours.Median(), floor.Median(), "ms", 0, 0, runs});
    Print({"server, alert pass, memory of the process", MemoryMegabytes(), 0, "MB", 0, 0, 1});
}

void Measure(const std::string& what, int runs) {
    if (what == "list") return MeasureList(runs);
    if (what == "generate") return MeasureGeneration(runs);
    if (what == "alert") return MeasureAlert(runs);
    throw std::runtime_error("list, generate or alert");
}

}  // namespace

int main(int count, char** values) {
    return RunProgram(count, values, "zvbench_server WHAT RUNS",
                      [](const Arguments& a) { Measure(a[0], std::stoi(a[1])); });
}

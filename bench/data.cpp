// Makes the databases that the benchmarks read: zvbench_data FOLDER. What is there is kept.
//
//   list_N.db       sample data with N items
//   cards_N.db      sample data with N cards
//   alert_N_K.db    the same, but exactly K items are due on the day of the benchmarks
//   floor_N_K.db    the items of alert_N_K.db under one index that begins with the window
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "bench_day.h"
#include "program.h"
#include "zvdb/engine.h"
#include "zvdb/sample.h"

namespace {

using zv::zvdb::Engine;

namespace fs = std::filesystem;

void MakeSample(const std::string& path, int items, int cards = zv::zvdb::SampleOptions::kByItems) {
    zv::zvdb::Progress progress(&std::cerr, false);
    zv::zvdb::SampleOptions options;
    options.items = items;
    options.cards = cards;
    options.today = zv::bench::Day();
    zv::zvdb::CreateDatabase(path, true, false, &options, progress);
}

/// Moves items into the day or away from it until exactly `due` are due.
void SetDue(Engine& engine, int due) {
    const std::string day = "'" + zv::bench::Day().IsoDateTime() + "'";
    const std::string covers = "tDuring1<=" + day + " and tDuring2>=" + day;
    engine.Run("begin");
    // The next whole year keeps the widths and most of the spread.
    engine.Run("create temp table surplus as select fID from tTaskList where " + covers +
               " order by fID limit -1 offset " + std::to_string(due));
    engine.Run(
        "update tTaskList set taskTime=datetime(taskTime,'+400 days'),"
        "tDuring1=datetime(tDuring1,'+400 days'),tDuring2=datetime(tDuring2,'+400 days') "
        "where fID in (select fID from surplus)");
    const auto covered = engine.Number("select count(*) from tTaskList where " + covers);
    engine.Run("create temp table missing as select fID from tTaskList where not(" + covers +
               ") and fType<>1 order by (fID*7919)%100003 limit " + std::to_string(due - covered));
    engine.Run("update tTaskList set taskTime=" + day + ",tDuring1=datetime(" + day +
               ",'-'||(fID%8)||' days'),tDuring2=datetime(" + day +
               ",'+'||(fID%5)||' days') where fID in (select fID from missing)");
    engine.Run("update tTaskList set tDone=0,tDoneMan=null where " + covers);
    engine.Run("commit");
    const auto result =
        engine.Number("select count(*) from tTaskList where " + covers + " and tDone=0");
    if (result != due) throw std::runtime_error("the number of due items is wrong");
}

void MakeFloor(const std::string& path, const std::string& source) {
    std::error_code ignored;
    fs::remove(path, ignored);
    const std::string part = path + ".part";
    fs::remove(part, ignored);
    std::fclose(std::fopen(part.c_str(), "wb"));
    {
        Engine engine(part);
        engine.Run("pragma journal_mode=off");
        engine.Run("attach '" + source + "' as s");
        engine.Run(
            "create table tTaskList(fID integer primary key,taskID,taskTitle,taskTime,"
            "tDuring1,tDuring2,tDone,fType)");
        engine.Run(
            "insert into tTaskList select fID,taskID,taskTitle,taskTime,tDuring1,tDuring2,"
            "tDone,fType from s.tTaskList");
        engine.Run(
            "create index window on tTaskList(tDuring1,tDuring2,tDone,fType,taskTime,"
            "taskTitle,taskID)");
    }
    fs::rename(part, path);
}

void Make(const std::string& folder) {
    for (const int items : {1'000, 10'000, 100'000}) {
        const std::string path = folder + "/list_" + std::to_string(items) + ".db";
        if (!fs::exists(path)) MakeSample(path, items);
    }
    constexpr int kCards = 100'000;
    const std::string cards = folder + "/cards_" + std::to_string(kCards) + ".db";
    if (!fs::exists(cards)) MakeSample(cards, 1'000, kCards);
    for (const int items : {10'000, 100'000, 1'000'000}) {
        // A thousand are for a window, which does not care for the others.
        for (const int due :
             items == 10'000 ? std::vector{10, 1'000, 2'800} : std::vector{10, 2'800}) {
            const std::string name = std::to_string(items) + "_" + std::to_string(due) + ".db";
            const std::string path = folder + "/alert_" + name;
            if (!fs::exists(path)) {
                MakeSample(path + ".new", items);
                {
                    Engine engine(path + ".new");
                    SetDue(engine, due);
                    engine.Run("pragma wal_checkpoint(truncate)");
                }
                fs::rename(path + ".new", path);
            }
            if (!fs::exists(folder + "/floor_" + name)) MakeFloor(folder + "/floor_" + name, path);
        }
    }
}

}  // namespace

int main(int count, char** values) {
    return zv::bench::RunProgram(count, values, "zvbench_data FOLDER",
                                 [](const zv::bench::Arguments& a) {
                                     fs::create_directories(a[0]);
                                     Make(a[0]);
                                 });
}

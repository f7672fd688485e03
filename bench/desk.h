// A task manager at work, without a display.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

#include "bench_application.h"
#include "doubles/agreeing_dialogs.h"
#include "floors/raw_query.h"
#include "forms/headless/headless_backend.h"

namespace zv::bench {

/// A manager whose tree holds every item of a database.
struct Desk {
    explicit Desk(const std::string& path)
        : backend(dialogs), application(backend, path), window(application.Manager()), raw(path) {
        window.filter.DTPicker0.SetValue(std::nullopt);
        window.filter.DTPicker1.SetValue(std::nullopt);
        window.listing.chkEvent_Click();
    }
    int Number(const std::string& sql) {
        int number = 0;
        raw.Read(sql, [&](const char* const* row) { number = std::atoi(row[0]); });
        return number;
    }
    /// The numbers of plain tasks, in an order that jumps about the tree.
    std::vector<int> Tasks() {
        std::vector<int> tasks;
        raw.Read("select fID from tTaskList where fType=0 order by (fID*7919)%100003",
                 [&](const char* const* row) { tasks.push_back(std::atoi(row[0])); });
        return tasks;
    }
    void Click(int item) {
        const int node = window.tree.tvwTask.Find("Z" + std::to_string(item));
        window.tree.tvwTask.Select(node);
        window.selection.tvwTask_NodeClick(node);
    }

    doubles::AgreeingDialogs dialogs;
    forms::headless::HeadlessBackend backend;
    BenchApplication application;
    windows::frmTaskMain& window;
    RawDatabase raw;
};

}  // namespace zv::bench

// The whole system without a display, for tests: a scripted machine, settings and files in memory,
// boxes answered from a queue, an embedded database in a temporary folder whose statements are
// kept, and a user who clicks and types.
#pragma once

#include <filesystem>
#include <string>

#include "base/path.h"
#include "control/zv_task.h"
#include "doubles/memory_files.h"
#include "doubles/memory_settings.h"
#include "doubles/queued_dialogs.h"
#include "doubles/recorded_statements.h"
#include "doubles/recording_opener.h"
#include "driver/headless/headless_driver.h"
#include "forms/headless/headless_backend.h"
#include "platform/scripted/scripted_machine.h"
#include "session/session.h"
#include "windows/main/frm_task_main.h"

namespace zv::test {

class TestApplication {
 public:
    /// Makes an empty database and initialises the control with it as its data path.
    TestApplication();
    ~TestApplication();

    /// Runs statements of the engine, separated by ";", on the database, as the host application
    /// would.
    void Sql(const std::string& script);
    /// Makes the tables that a database may have beside the others.
    void AddSideTables();
    /// First column of the first row.
    std::string Query(const std::string& statement);
    /// A line a row, columns joined by "|", dates as the file holds them.
    std::string Rows(const std::string& query);
    /// A path in the application's folder; the name and the answer are UTF-8.
    std::string Path(const std::string& name) const { return Utf8Of(folder / PathOf(name)); }

    /// The number of the error that leaves refresh; 0 when none does.
    int Refresh(std::int32_t mode, std::int16_t modal = 0);
    windows::frmTaskMain* Window();
    /// A line "KEY|PARENT|IMAGE|TEXT" for each node of the window's tree.
    std::string Nodes();
    std::string NodeKeys();  ///< keys in display order, joined by blanks

    std::filesystem::path folder;
    platform::scripted::ScriptedClock clock;  ///< begins at 2003-03-07 09:30
    platform::scripted::ScriptedCodePage codePage;
    platform::scripted::ScriptedShell shell;
    doubles::MemoryFiles files;
    platform::scripted::ScriptedModules modules;
    platform::scripted::ScriptedReports reports;
    platform::scripted::ScriptedVault vault;
    platform::Machine machine{clock, codePage, shell, files, modules, reports, vault};
    doubles::MemorySettings settings;
    doubles::RecordingOpener opener;
    doubles::RecordedStatements statements;
    doubles::QueuedDialogs dialogs;
    forms::headless::HeadlessBackend backend{dialogs};
    forms::WindowSystem windows{backend};
    Session session{machine, settings, opener, windows, &statements};
    ZvTask control{session};
    driver::HeadlessDriver user;
    std::string errorText;  ///< of the last Refresh
};

}  // namespace zv::test

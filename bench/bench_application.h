// The control's core on the embedded engine, with the least possible around it.
#pragma once

#include <stdexcept>
#include <string>

#include "bench_day.h"
#include "control/zv_task.h"
#include "doubles/engine_opener.h"
#include "doubles/no_settings.h"
#include "doubles/still_machine.h"
#include "measure.h"
#include "session/session.h"
#include "store/odbc/connection_string.h"
#include "windows/main/frm_task_main.h"

namespace zv::bench {

/// Unlike the application of the tests it stands on any backend and any database, and keeps nothing
/// that would be measured.
class BenchApplication {
 public:
    /// `path`: of an embedded file, or an ODBC connection string. `observer` may be null.
    BenchApplication(forms::Backend& backend, const std::string& path,
                     store::StatementObserver* observer = nullptr)
        : windows_(backend),
          machine_(still_.All()),
          session_(machine_, settings_, opener_, windows_, observer),
          control_(session_) {
        control_.UserControl_InitProperties();
        session_.state.UserPath = path;
        session_.state.SQLData = store::odbc::IsOdbcConnectionString(path) ? 1 : 0;
        session_.state.myPower = std::string(350, '1');
    }
    ~BenchApplication() { windows_.UnloadAll(); }
    BenchApplication(const BenchApplication&) = delete;
    BenchApplication& operator=(const BenchApplication&) = delete;

    ZvTask& Control() { return control_; }
    Session& GetSession() { return session_; }
    /// The task manager, loaded and not shown.
    windows::frmTaskMain& Manager() {
        auto& window = windows_.Create<windows::frmTaskMain>(session_);
        window.TaskAlert(windows::kManagerMode);
        window.Load();
        return window;
    }
    windows::frmTaskMain* Window() {
        return windows_.Find<windows::frmTaskMain>(windows::frmTaskMain::kName);
    }
    void UnloadWindows() { windows_.UnloadAll(); }

 private:
    doubles::StillMachine still_{Day()};
    doubles::NoSettings settings_;
    doubles::EngineOpener opener_;
    forms::WindowSystem windows_;
    platform::Machine machine_;
    Session session_;
    ZvTask control_;
};

/// Milliseconds of an alert pass, whose window goes again afterwards; `nodes` become those of its
/// tree.
inline double TimeOfAlertPass(BenchApplication& application, int& nodes) {
    const Stopwatch watch;
    application.Control().refresh(0, 0);
    const double time = watch.Milliseconds();
    if (application.Window() == nullptr) throw std::runtime_error("nothing is due");
    nodes = application.Window()->tree.tvwTask.Count();
    application.UnloadWindows();
    return time;
}

}  // namespace zv::bench

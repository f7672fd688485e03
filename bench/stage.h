// The control's core on the embedded engine, with the least possible around it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "bench_day.h"
#include "control/zv_task.h"
#include "measure.h"
#include "session/session.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/odbc_connection.h"
#include "store/sqlite/sqlite_connection.h"
#include "windows/main/frm_task_main.h"

namespace zv::bench {

/// A machine on which nothing moves: one day, a double-byte code page, no programs, no files.
class StillMachine : public platform::Clock,
                     public platform::AnsiCodePage,
                     public platform::Shell,
                     public platform::FileSystem,
                     public platform::ModuleRunner,
                     public platform::ReportPrinter {
 public:
    DateTime Now() const override { return Day(); }
    int ByteWidth(char32_t codePoint) const override { return codePoint < 0x80 ? 1 : 2; }
    void Open(const std::string&) override {}
    std::string DialerPath() const override { return {}; }
    void Start(const std::string&) override {}
    void SendKeys(const std::string&) override {}
    bool FileExists(const std::string&) const override { return false; }
    std::unique_ptr<platform::OutputFile> Create(const std::string& path) override {
        throw std::runtime_error("a file to write: " + path);
    }
    std::string ApplicationFolder() const override { return "."; }
    void Run(const platform::ModuleStart&) override {}
    void Prepare() override {}
    void Print(const platform::ReportJob&) override {}
    void Release() noexcept override {}

    platform::Machine All() { return {*this, *this, *this, *this, *this, *this}; }
};

class NoSettings : public resources::SettingsStore {
 public:
    std::string Get(std::string_view, std::string_view, std::string_view,
                    std::string_view fallback) const override {
        return std::string(fallback);
    }
    void Save(std::string_view, std::string_view, std::string_view, std::string_view) override {}
};

class EngineOpener : public store::ConnectionOpener {
 public:
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override {
        if (!store::odbc::IsOdbcConnectionString(settings.dataPath.ForDriver())) {
            return store::OpenSqlite(settings.dataPath.ForDriver());
        }
        return store::odbc::OpenOdbc(store::odbc::OptionsFor(settings));
    }
};

/// A box would stop the run: the text says what went wrong.
class NoDialogs : public forms::Dialogs {
 public:
    forms::Answer ShowMessage(forms::Form*, const std::string& text, int,
                              const std::string&) override {
        throw std::runtime_error("a message box: " + text);
    }
    std::optional<std::string> AskText(forms::Form*, const std::string& prompt, const std::string&,
                                       bool) override {
        throw std::runtime_error("an input box: " + prompt);
    }
    std::optional<std::string> ChooseFile(forms::Form*, const forms::FileRequest&) override {
        throw std::runtime_error("a file dialog");
    }
};

class Stage {
 public:
    /// `path`: of an embedded file, or an ODBC connection string. `observer` may be null.
    Stage(forms::Backend& backend, const std::string& path,
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
    ~Stage() { windows_.UnloadAll(); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

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
    StillMachine still_;
    NoSettings settings_;
    EngineOpener opener_;
    forms::WindowSystem windows_;
    platform::Machine machine_;
    Session session_;
    ZvTask control_;
};

/// Milliseconds of an alert pass, whose window goes again afterwards; `nodes` become those of its
/// tree.
inline double TimeOfAlertPass(Stage& stage, int& nodes) {
    const Stopwatch watch;
    stage.Control().refresh(0, 0);
    const double time = watch.Milliseconds();
    if (stage.Window() == nullptr) throw std::runtime_error("nothing is due");
    nodes = stage.Window()->tree.tvwTask.Count();
    stage.UnloadWindows();
    return time;
}

}  // namespace zv::bench

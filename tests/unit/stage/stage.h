// A whole system without a display: a scripted machine, settings in memory, boxes answered from a
// queue, an embedded database in a temporary folder whose statements are kept, and a host's bag.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/path.h"
#include "control/zv_task.h"
#include "driver/headless/headless_driver.h"
#include "forms/headless/headless_backend.h"
#include "platform/scripted/scripted_machine.h"
#include "session/session.h"
#include "windows/main/frm_task_main.h"

namespace zv::stage {

class Clock : public platform::Clock {
 public:
    DateTime Now() const override { return now; }
    DateTime now{2003, 3, 7, 9, 30};
};

/// Two bytes for every character beyond ASCII but an emoji, which the Chinese code pages lack.
class CodePage : public platform::AnsiCodePage {
 public:
    int ByteWidth(char32_t codePoint) const override {
        return codePoint < 0x80 || codePoint > 0xFFFF ? 1 : 2;
    }
};

/// Keeps what it is handed, keys behind "keys:".
class Shell : public platform::Shell {
 public:
    void Open(const std::string& target) override {
        lines.push_back(target);
        if (!failing.empty()) throw RuntimeError(ErrorNumber::FileNotFound, failing);
    }
    std::string DialerPath() const override { return dialer; }
    void Start(const std::string& program) override { lines.push_back(program); }
    void SendKeys(const std::string& keys) override { lines.push_back("keys:" + keys); }
    std::vector<std::string> lines;
    std::string failing;  ///< not empty: nothing can be opened, with this text
    std::string dialer = "C:\\Windows\\dialer.exe";
};

class Files : public platform::FileSystem {
 public:
    bool FileExists(const std::string& path) const override {
        return std::filesystem::is_regular_file(path);
    }
    std::unique_ptr<platform::OutputFile> Create(const std::string& path) override;
    std::string ApplicationFolder() const override { return folder; }
    std::string folder = "C:\\App";
    /// Committed files by their paths; none is on disk.
    std::map<std::string, std::string> written;
    std::string failing;  ///< not empty: nothing can be written, with this text
};

class Modules : public platform::ModuleRunner {
 public:
    void Run(const platform::ModuleStart& start) override { started.push_back(start); }
    std::vector<platform::ModuleStart> started;
};

class Settings : public resources::SettingsStore {
 public:
    std::string Get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override;
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override;
    /// "section.key" to text, of the application "Tarnell".
    std::map<std::string, std::string> values;
};

class Dialogs : public forms::Dialogs {
 public:
    forms::Answer ShowMessage(forms::Form* owner, const std::string& text, int style,
                              const std::string& title) override;
    std::optional<std::string> AskText(forms::Form* owner, const std::string& prompt,
                                       const std::string& title, bool secret) override;
    std::optional<std::string> ChooseFile(forms::Form* owner,
                                          const forms::FileRequest& request) override;

    std::deque<forms::Answer> answers;
    /// A question that finds no answer in the queue is a mistake of the test; otherwise it is OK.
    bool mustHaveAnswers = false;
    std::function<void(const std::string&)> onMessage;
    std::deque<std::optional<std::string>> inputs;
    std::vector<std::string> messages;  ///< "STYLE|TEXT"
    std::vector<std::string> prompts;
    std::vector<forms::FileRequest> fileRequests;
};

class Statements : public store::StatementObserver {
 public:
    void OnStatement(const std::string& sql) override;
    void OnRowUpdate() override;
    /// The statements since the last call.
    std::vector<std::string> Take();
    /// The statement that holds this text fails with it as its text; empty: none does.
    std::string failing;
    /// Not empty: the writing of a row through a recordset fails with this text.
    std::string failingUpdate;
    /// Rows that are written through a recordset are told too, each as "row".
    bool tellsRows = false;
    std::function<void()> onRow;
    /// The `count`-th row that is written from now on fails.
    void FailRow(int count) { rowsToFailure_ = count; }

 private:
    std::vector<std::string> sent_;
    int rowsToFailure_ = 0;
};

class Opener : public store::ConnectionOpener {
 public:
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings& settings) override;
    /// Opens in place of the embedded engine; empty: the embedded engine does.
    std::function<std::unique_ptr<store::Connection>(const store::ConnectionSettings&)> open;
    int openings = 0;
    store::ConnectionSettings last;
};

class Bag : public PropertyBag {
 public:
    BagValue Read(std::string_view key, const BagValue& fallback) override;
    void Write(std::string_view key, const BagValue& value) override;

    std::vector<std::string> readKeys;
    /// "KEY=VALUE" in the order written.
    std::vector<std::string> written;
    std::vector<std::pair<std::string, BagValue>> values;
};

class Stage {
 public:
    /// Makes an empty database and initialises the control with it as its data path.
    Stage();
    ~Stage();

    /// Runs statements of the engine, separated by ";", on the database, as the host application
    /// would.
    void Sql(const std::string& script);
    /// First column of the first row.
    std::string Query(const std::string& statement);
    /// A line a row, columns joined by "|", dates as the file holds them.
    std::string Rows(const std::string& query);
    /// A path in the stage's folder; the name and the answer are UTF-8.
    std::string Path(const std::string& name) const { return Utf8Of(folder / PathOf(name)); }

    /// The number of the error that leaves refresh; 0 when none does.
    int Refresh(std::int32_t mode, std::int16_t modal = 0);
    windows::frmTaskMain* Window();
    /// A line "KEY|PARENT|IMAGE|TEXT" for each node of the window's tree.
    std::string Nodes();
    std::string NodeKeys();  ///< keys in display order, joined by blanks

    std::filesystem::path folder;
    Clock clock;
    CodePage codePage;
    Shell shell;
    Files files;
    Modules modules;
    platform::scripted::ScriptedReports reports;
    platform::Machine machine{clock, codePage, shell, files, modules, reports};
    Settings settings;
    Opener opener;
    Statements statements;
    Dialogs dialogs;
    forms::headless::HeadlessBackend backend{dialogs};
    forms::WindowSystem windows{backend};
    Session session{machine, settings, opener, windows, &statements};
    ZvTask control{session};
    driver::HeadlessDriver user;
    std::string errorText;  ///< of the last Refresh
};

}  // namespace zv::stage

// A machine that is given its answers and keeps what it was asked to do: for tests, and for
// playing scenarios. Paths may be written in the Windows way on every system.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "platform/machine.h"

namespace zv::platform::scripted {

/// Stands still until it is moved; starts at 2000-01-01 00:00:00.
class ScriptedClock : public Clock {
 public:
    DateTime Now() const override { return now_; }
    void Set(DateTime now) { now_ = now; }
    void Advance(std::int64_t seconds) { now_ = now_.AddSeconds(seconds); }

 private:
    DateTime now_{2000, 1, 1};
};

/// The byte widths of one of the code pages 936 (the initial one), 950 and 1252, the same on every
/// system: only characters that the code page really holds, no look-alikes.
class ScriptedCodePage : public AnsiCodePage {
 public:
    ScriptedCodePage();
    ~ScriptedCodePage() override;
    /// Throws error 5 for a code page that is not one of the three.
    void Select(int codePage);
    int ByteWidth(char32_t codePoint) const override;

 private:
    class Converter;
    int codePage_ = 0;
    std::unique_ptr<Converter> converter_;
};

/// Keeps what it is handed, a line each: programs and addresses as they are, keystrokes behind
/// "keys:".
class ScriptedShell : public Shell {
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

/// The real files below one folder, which is also the application's; relative names start there.
class ScriptedFiles : public FileSystem {
 public:
    explicit ScriptedFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}
    bool FileExists(const std::string& path) const override;
    std::unique_ptr<OutputFile> Create(const std::string& path) override;
    /// The room that is left for all files together; nothing: as much as there is. Writing beyond
    /// it is error 61.
    std::optional<std::size_t> room;
    std::string ApplicationFolder() const override;
    /// The place that a path of the played system stands for on this one.
    std::filesystem::path Resolve(std::string_view path) const;

 private:
    std::filesystem::path folder_;
};

/// Keeps the modules that it was asked to run.
class ScriptedModules : public ModuleRunner {
 public:
    void Run(const ModuleStart& start) override { started.push_back(start); }

    std::vector<ModuleStart> started;
};

/// Keeps the jobs that it was asked to print, or fails as it is set to.
class ScriptedReports : public ReportPrinter {
 public:
    struct Printed {
        ReportJob job;  ///< without recordset and table, which are gone
        bool hadRecordset = false;
        std::vector<std::string> headings;            ///< of the table
        std::vector<std::vector<std::string>> cells;  ///< of the table, by rows
        std::vector<std::string> signs;               ///< of its rows
    };

    void Prepare() override;
    void Print(const ReportJob& job) override;
    void Release() noexcept override { isThere_ = false; }

    std::vector<Printed> printed;
    /// How often the component was created.
    int created = 0;
    /// The component cannot be created: error 429.
    bool missing = false;
    /// Not empty: printing fails, with this text.
    std::string failing;

 private:
    bool isThere_ = false;
};

/// Seals with the name of a user, whom a test may exchange, and a sum over the bytes.
class ScriptedVault : public UserVault {
 public:
    std::optional<std::string> Seal(std::string_view bytes) override;
    std::optional<std::string> Reveal(std::string_view sealed) override;

    std::string user = "user";
    /// There is no means to seal.
    bool missing = false;
};

/// All of it together.
struct ScriptedMachine {
    explicit ScriptedMachine(std::filesystem::path folder) : files(std::move(folder)) {}

    ScriptedClock clock;
    ScriptedCodePage codePage;
    ScriptedShell shell;
    ScriptedFiles files;
    ScriptedModules modules;
    ScriptedReports reports;
    ScriptedVault vault;
    Machine machine{clock, codePage, shell, files, modules, reports, vault};
};

}  // namespace zv::platform::scripted

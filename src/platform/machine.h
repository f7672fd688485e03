// The machine port: what the system asks of the computer it runs on, apart from windows, the
// database and the workstation settings. platform/win32 asks the system; platform/scripted is
// given their answers.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"
#include "platform/report_printer.h"
#include "store/connection_opener.h"

namespace zv::platform {

/// Local time.
class Clock {
 public:
    virtual ~Clock() = default;
    virtual DateTime Now() const = 0;
    DateTime Today() const { return Now().Date(); }
};

/// The system's ANSI code page, in whose bytes text lengths are measured.
class AnsiCodePage {
 public:
    virtual ~AnsiCodePage() = default;
    /// 2 for a character that the code page writes with two bytes, otherwise 1, also for one that
    /// it does not know (it becomes a question mark there).
    virtual int ByteWidth(char32_t codePoint) const = 0;
};

class Shell {
 public:
    virtual ~Shell() = default;
    /// Hands an address or a file to the shell's "Open" verb, never to a command line.
    virtual void Open(const std::string& target) = 0;
    /// Full path of the system's dialer; empty when there is none.
    virtual std::string DialerPath() const = 0;
    virtual void Start(const std::string& program) = 0;
    /// Types the text into the window that has the focus.
    virtual void SendKeys(const std::string& keys) = 0;
};

/// A file being written. What stood under its name stays untouched until Commit; without one,
/// nothing remains of it. Its operations throw RuntimeError with the system's reason and the path:
/// 61 no room left, 70 not allowed or in use, 75 otherwise.
class OutputFile {
 public:
    virtual ~OutputFile() = default;
    /// Appends. Every call reaches the system: hand over large pieces.
    virtual void Write(std::string_view bytes) = 0;
    /// On disk and under its name when this returns. Ends the writing.
    virtual void Commit() = 0;
};

class FileSystem {
 public:
    virtual ~FileSystem() = default;
    /// Begins a file that will replace the one of that name. Throws like OutputFile, also for a
    /// file that Commit could not replace as it stands now, and 76 for a folder that is not there.
    virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;
    /// A file (not a folder) of that name exists.
    virtual bool FileExists(const std::string& path) const = 0;
    /// Folder of the control's own file, without a backslash at its end unless it is a root.
    virtual std::string ApplicationFolder() const = 0;
};

struct ModuleStart {
    std::string moduleName;
    std::string heading;
    int language = 0;
    int startMode = 9;
    std::string userName;
    store::ConnectionSettings connection;
};

/// Starts other modules of the host suite.
class ModuleRunner {
 public:
    virtual ~ModuleRunner() = default;
    virtual void Run(const ModuleStart& start) = 0;
};

/// Makes bytes unreadable for everyone but this user of the machine.
class UserVault {
 public:
    virtual ~UserVault() = default;
    /// Nothing where the system has no means for it.
    virtual std::optional<std::string> Seal(std::string_view bytes) = 0;
    /// Nothing for what was not sealed by this user or was changed since.
    virtual std::optional<std::string> Reveal(std::string_view sealed) = 0;
};

/// All of it, owned by the program that starts the system; outlives every window.
struct Machine {
    Clock& clock;
    AnsiCodePage& codePage;
    Shell& shell;
    FileSystem& files;
    ModuleRunner& modules;
    ReportPrinter& reports;
    UserVault& vault;
};

}  // namespace zv::platform

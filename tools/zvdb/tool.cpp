#include "zvdb/tool.h"

#include <filesystem>
#include <iomanip>
#include <new>

#include "base/path.h"
#include "store/connection_text.h"
#include "zvdb/backup.h"
#include "zvdb/check.h"
#include "zvdb/command_line.h"
#include "zvdb/hidden_output.h"
#include "zvdb/import/endpoint.h"
#include "zvdb/import/interruption.h"
#include "zvdb/journal.h"
#include "zvdb/server_database.h"
#include "zvdb/upgrade.h"
#include "zvdb/version.h"

namespace zv::zvdb {
namespace {

constexpr int kFine = 0;
constexpr int kFoundWrong = 1;
constexpr int kCannot = 2;
constexpr int kCopiedWrong = 3;

void PrintCounts(const Report& report, std::ostream& out) {
    for (const auto& [table, rows] : report.counts) {
        out << std::left << std::setw(14) << table << ' ' << std::right << std::setw(9) << rows
            << '\n';
    }
}

// A file of that name would keep the password for everybody to read. "@FILE" is a connection, too.
void RefuseConnection(const std::string& name, const char* reason) {
    if (name.starts_with('@') || store::ConnectionText(name).ForMessage() != name) {
        throw UsageError(reason);
    }
}

int Print(const Report& report, const Console& console) {
    PrintCounts(report, console.out);
    for (const std::string& problem : report.problems) console.out << "wrong: " << problem << '\n';
    if (!report.problems.empty()) return kFoundWrong;
    console.out << "nothing wrong\n";
    return kFine;
}

int Create(const CommandLine& line, const Console& console) {
    Progress progress(line.quiet ? nullptr : &console.err, console.terminal);
    const bool sample = line.command == Command::Sample;
    const InterruptionGuard guard;
    if (!line.server.empty()) {
        if (!sample) {
            CreateServerTables(line.server, line.force, line.sideTables);
            return kFine;
        }
        CreateServerSample(line.server, line.force, line.sideTables, line.sample, progress);
        return Print(CheckServer(line.server), console);
    }
    RefuseConnection(line.file, "this is a connection; --to stands in front of a server");
    const std::filesystem::path file = PathOf(line.file);
    if (std::filesystem::is_directory(file)) throw FileError("this is a folder");
    if (file.has_parent_path() && !std::filesystem::is_directory(file.parent_path())) {
        throw FileError("its folder does not exist");
    }
    if (!line.force && std::filesystem::exists(file)) {
        throw FileError("the file is there already (--force replaces it)");
    }
    for (const std::string& aside : CreateDatabase(line.file, line.force, line.sideTables,
                                                   sample ? &line.sample : nullptr, progress)) {
        console.err << "zvdb: " << aside << '\n';
    }
    if (sample) {
        Engine engine(line.file);
        PrintCounts(CheckSchema(engine), console.out);
    }
    return kFine;
}

int Check(const CommandLine& line, const Console& console) {
    return Print(line.server.empty() ? CheckDatabase(line.file) : CheckServer(line.server),
                 console);
}

int Upgrade(const CommandLine& line, const Console& console) {
    RefuseConnection(line.file, "this is a connection; --to stands in front of a server");
    const std::vector<SidePart> parts = line.server.empty()
                                            ? UpgradeFile(line.file, line.dryRun)
                                            : UpgradeServer(line.server, line.dryRun);
    for (const SidePart& part : parts) {
        console.out << (line.dryRun ? "would make " : "made ") << part.Called() << '\n';
    }
    if (parts.empty()) console.out << "nothing to do\n";
    return kFine;
}

int Copy(const CommandLine& line, const Console& console) {
    for (const std::string& name : {line.file, line.second}) {
        RefuseConnection(name, "backup and restore are of embedded files, not of connections");
    }
    Progress progress(line.quiet ? nullptr : &console.err, console.terminal);
    const Copied copied = line.command == Command::Backup
                              ? BackUp(line.file, line.second, line.force, progress)
                              : Restore(line.file, line.second, line.replace, progress);
    progress.Finish();
    for (const std::string& aside : copied.aside) console.err << "zvdb: " << aside << '\n';
    return Print(copied.report, console) == kFine ? kFine : kCopiedWrong;
}

int Mode(const CommandLine& line, const Console& console) {
    if (!line.second.empty()) {
        SetJournalKind(line.file,
                       line.second == "wal" ? JournalKind::WriteAhead : JournalKind::RollBack);
    }
    const bool ahead = JournalKindOf(line.file) == JournalKind::WriteAhead;
    console.out << (ahead ? "wal\n" : "rollback\n");
    return kFine;
}

int Refuse(const Console& console, const CommandLine& line, const std::string& reason) {
    const std::string name = line.server.empty() ? line.file : ShownName(line.server);
    console.err << "zvdb: " << name << ": " << reason << '\n';
    return kCannot;
}

int RunCommand(const std::vector<std::string>& arguments, DateTime today, const Console& console) {
    CommandLine line;
    try {
        line = ParseCommandLine(arguments, today);
        switch (line.command) {
            case Command::Help:
                console.out << kHelp;
                return kFine;
            case Command::Version:
                console.out << VersionText();
                return kFine;
            case Command::Create:
            case Command::Sample:
                return Create(line, console);
            case Command::Check:
                return Check(line, console);
            case Command::Upgrade:
                return Upgrade(line, console);
            case Command::Import:
                return RunImport(line.import, console);
            case Command::Mode:
                return Mode(line, console);
            case Command::Backup:
            case Command::Restore:
                return Copy(line, console);
        }
        return kCannot;
    } catch (const UsageError& error) {
        console.err << "zvdb: " << error.what() << "\nzvdb --help tells how it is used\n";
        return kCannot;
    } catch (const EngineError& error) {
        if (error.Code() == SQLITE_INTERRUPT) return Refuse(console, line, Interrupted().what());
        const bool busy = error.Code() == SQLITE_BUSY;
        return Refuse(console, line, busy ? "another program has the file open" : error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        // Another file than the one that was asked for may be what cannot be made.
        if (!error.path1().empty() && line.server.empty()) line.file = Utf8Of(error.path1());
        return Refuse(console, line, error.code().message());
    } catch (const std::exception& error) {
        return Refuse(console, line, error.what());
    }
}

}  // namespace

int RunTool(const std::vector<std::string>& arguments, DateTime today, const Console& console) {
    try {
        const GivenSecrets secrets(arguments);
        if (secrets.IsEmpty()) return RunCommand(arguments, today, console);
        HidingConsole hiding(console, secrets);
        return RunCommand(arguments, today, hiding.Get());
    } catch (const std::bad_alloc&) {
        // Nor is there any for a longer sentence.
        console.err << "zvdb: there is not enough memory\n";
        return kCannot;
    }
}

}  // namespace zv::zvdb

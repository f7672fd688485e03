#include "zvdb/backup.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <system_error>
#include <thread>

#include "base/path.h"
#include "store/sqlite/journal_mode.h"
#include "zvdb/import/interruption.h"
#include "zvdb/new_file.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;
namespace sqlite = store::sqlite;
using Users = Engine::Users;

constexpr int kPagesInStep = 1000;
constexpr std::chrono::seconds kPatience{10};

struct Finish {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

bool IsBusy(int code) {
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

/// All or nothing. `from` is in a transaction that reads, so that all pages are of one moment.
void CopyPages(Engine& from, Engine& to, Progress& progress) {
    const std::unique_ptr<sqlite3_backup, Finish> backup(
        sqlite3_backup_init(to.Handle(), "main", from.Handle(), "main"));
    if (!backup) to.Fail({});
    auto end = std::chrono::steady_clock::now() + kPatience;
    int done = 0;
    while (true) {
        StopIfInterrupted();
        const int code = sqlite3_backup_step(backup.get(), kPagesInStep);
        if (code == SQLITE_DONE) return;
        if (IsBusy(code)) {
            if (std::chrono::steady_clock::now() > end) {
                throw EngineError(SQLITE_BUSY, "another program keeps the file locked");
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            continue;
        }
        if (code != SQLITE_OK) throw EngineError(code & 0xFF, sqlite3_errstr(code));
        end = std::chrono::steady_clock::now() + kPatience;
        const int pages = sqlite3_backup_pagecount(backup.get());
        if (done == 0) progress.Begin("pages", pages);
        for (const int left = sqlite3_backup_remaining(backup.get()); done < pages - left; done++) {
            progress.Advance();
        }
    }
}

/// The contents of `path` in the new file `part`, as a file in the roll-back mode, looked over.
Report CopyInto(const std::string& part, const std::string& path, Progress& progress) {
    std::vector<std::pair<std::string, std::int64_t>> counts;
    {
        Engine source(path);
        source.Run("pragma query_only=on");
        source.Run("begin; select count(*) from sqlite_master");
        counts = CheckSchema(source).counts;
        Engine target(part, SQLITE_OPEN_READWRITE, Users::Alone);
        target.Run("pragma synchronous=off");
        CopyPages(source, target, progress);
    }
    // The head came over with the pages, and with it the mode.
    Engine copy(part, SQLITE_OPEN_READWRITE, Users::Alone);
    if (sqlite::SetJournalMode(copy.Handle(), "delete") != SQLITE_OK) copy.Fail({});
    progress.Begin("checking", 0);
    Report report = CheckContents(*InspectEmbedded(copy));
    if (report.counts.empty()) throw FileError(report.problems.front());
    if (report.counts != counts) throw FileError("the copy does not hold the rows of the file");
    return report;
}

void SetWriteAhead(const std::string& part) {
    Engine engine(part, SQLITE_OPEN_READWRITE, Users::Alone);
    if (sqlite::SetJournalMode(engine.Handle(), "wal") != SQLITE_OK) engine.Fail({});
}

/// The mode of `like`, where the file's place allows it.
void TakeMode(const std::string& part, const std::string& like) {
    if (sqlite::UsesWriteAheadLog(like) && !sqlite::IsOnShare(part)) SetWriteAhead(part);
}

bool IsSame(const std::string& a, const std::string& b) {
    std::error_code failed;
    return fs::equivalent(PathOf(a), PathOf(b), failed) && !failed;
}

void CheckName(const std::string& path) {
    const fs::path file = PathOf(path);
    if (fs::is_directory(file)) throw FileError("\"" + path + "\" is a folder");
    if (file.has_parent_path() && !fs::is_directory(file.parent_path())) {
        throw FileError("the folder of \"" + path + "\" does not exist");
    }
}

/// Pages of another size do not fit into a file that has a log.
void TakePageSize(const std::string& part, std::int64_t size) {
    Engine engine(part, SQLITE_OPEN_READWRITE, Users::Alone);
    if (engine.Number("pragma page_size") == size) return;
    engine.Run("pragma page_size=" + std::to_string(size) + "; vacuum");
}

Report PutInto(const std::string& path, const std::string& part, Progress& progress) {
    {
        Engine live(path);
        TakePageSize(part, live.Number("pragma page_size"));
        Engine staged(part);
        staged.Run("begin; select count(*) from sqlite_master");
        CopyPages(staged, live, progress);
    }
    try {
        return CheckDatabase(path);
    } catch (const FileError& error) {
        // The contents are there and stay.
        return {{}, {kNoCheck + std::string(error.what())}};
    }
}

}  // namespace

Copied BackUp(const std::string& path, const std::string& to, bool force, Progress& progress) {
    CheckFile(path);
    CheckName(to);
    if (IsSame(path, to)) throw FileError("file and backup are the same");
    if (!force && fs::exists(PathOf(to))) {
        throw FileError("\"" + to + "\" is there already (--force replaces it)");
    }
    try {
        RefuseWhileInUse(to);
    } catch (const EngineError&) {
        throw FileError("another program has \"" + to + "\" open");
    }
    const InterruptionGuard guard;
    Copied copied;
    copied.aside = NewFile::ToSetAside(to);
    NewFile file(to, path, force);
    copied.report = CopyInto(file.Part(), path, progress);
    TakeMode(file.Part(), path);
    StopIfInterrupted();
    PlaceAndCheck(file, to);
    return copied;
}

Copied Restore(const std::string& backup, const std::string& path, bool replace,
               Progress& progress) {
    CheckFile(backup);
    CheckName(path);
    if (IsSame(backup, path)) throw FileError("file and backup are the same");
    const bool isThere = fs::exists(PathOf(path));
    if (isThere && !replace) {
        throw FileError("\"" + path +
                        "\" is there already (--replace puts the backup in its place)");
    }
    if (isThere) {
        try {
            CheckFile(path);
        } catch (const FileError& error) {
            throw FileError("\"" + path + "\": " + error.what());
        }
    }
    const InterruptionGuard guard;
    Copied copied;
    if (!isThere) copied.aside = NewFile::ToSetAside(path);
    NewFile file(path, backup, isThere);
    copied.report = CopyInto(file.Part(), backup, progress);
    {
        Engine staged(file.Part());
        const auto missing = CheckSchema(staged).problems;
        if (!missing.empty()) throw FileError("the backup is not whole: " + missing.front());
    }
    if (isThere) {
        copied.report = PutInto(path, file.Part(), progress);
    } else {
        TakeMode(file.Part(), backup);
        PlaceAndCheck(file, path);
    }
    return copied;
}

}  // namespace zv::zvdb

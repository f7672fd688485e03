#include "zvdb/journal.h"

#include "base/path.h"
#include "store/sqlite/journal_mode.h"
#include "zvdb/check.h"
#include "zvdb/disk.h"

namespace zv::zvdb {

namespace sqlite = store::sqlite;

JournalKind JournalKindOf(const std::string& path) {
    CheckFile(path);
    return sqlite::UsesWriteAheadLog(path) ? JournalKind::WriteAhead : JournalKind::RollBack;
}

void SetJournalKind(const std::string& path, JournalKind kind) {
    const bool ahead = kind == JournalKind::WriteAhead;
    CheckFile(path);
    if (ahead && sqlite::IsOnShare(path)) {
        throw FileError("on a network share the write-ahead mode would destroy it");
    }
    {
        Engine engine(path, SQLITE_OPEN_READWRITE, Engine::Users::Alone);
        const auto damage = InspectEmbedded(engine)->Damage();
        if (!damage.empty()) throw FileError(damage.front());
        if (sqlite::SetJournalMode(engine.Handle(), ahead ? "wal" : "delete") != SQLITE_OK) {
            engine.Fail({});
        }
    }
    if (JournalKindOf(path) != kind) throw FileError("the mode could not be changed");
    disk::Sync(PathOf(path));
    disk::SyncFolderOf(PathOf(path));
}

}  // namespace zv::zvdb

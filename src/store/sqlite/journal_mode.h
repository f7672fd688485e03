// How a file of the embedded engine keeps what is not committed yet, and where that is safe.
//
// The write-ahead mode keeps an index of its log in memory that all programs share, which only
// those of one machine can: programs of several machines would overwrite each other's pages. On a
// network share a file is therefore opened in a roll-back mode or not at all. The mode is part of
// the file and chosen by the person who looks after it; nothing here changes it unasked.
#pragma once

#include <functional>
#include <string>
#include <string_view>

struct sqlite3;

namespace zv::store::sqlite {

/// Whether the file (UTF-8 path; it need not exist, its folder must) lies where other machines can
/// have it open too. A place of which nothing is known counts as this machine's own.
bool IsOnShare(const std::string& path);

/// What the file systems of a share are called by the system: "nfs4", "cifs", "fuse.sshfs".
bool IsShareType(std::string_view fileSystem);

/// While it lives, IsOnShare answers what `answer` does; for tests.
class ScriptedShares {
 public:
    explicit ScriptedShares(std::function<bool(const std::string& path)> answer);
    ~ScriptedShares();
    ScriptedShares(const ScriptedShares&) = delete;
    ScriptedShares& operator=(const ScriptedShares&) = delete;
};

/// The name under which the engine opens files on a share: the write-ahead mode does not work there
/// at all, whatever happens to the file while it is open.
const char* ShareVfs();

/// The file's own mode is write-ahead, as its head says. False when it cannot be read.
bool UsesWriteAheadLog(const std::string& path);

/// The sentence that refuses a file in write-ahead mode on a share, with the command that helps.
std::string RefusedOnShare(const std::string& path);

/// The mode in which an open file is: "wal", "delete". Empty when the engine does not say.
std::string JournalMode(sqlite3* database);

/// Changes the mode of the file, not of those attached to it, and looks at what the engine made of
/// it. Answers the engine's code, an error when the mode is another one afterwards.
int SetJournalMode(sqlite3* database, std::string_view mode);

}  // namespace zv::store::sqlite

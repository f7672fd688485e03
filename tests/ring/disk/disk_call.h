// What a program asks of the disk, whether through the database engine or by itself.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zv::ring {

enum class DiskAction {
    Open,
    Read,
    Write,
    Truncate,
    Sync,
    Remove,
    Rename,
    Create,
    SyncFolder,
    // Locks and shared memory, which a system keeps for itself when the disk is gone.
    Lock,         ///< the system cannot lock the file
    Busy,         ///< somebody else has the lock, of the file or of the shared memory
    Unlock,       ///< the lock is gone, but the system says that it failed
    MapMemory,    ///< the shared memory cannot be reached
    LockMemory,   ///< the system cannot lock a part of the shared memory
    UnlockMemory  ///< as with Unlock
};

/// As texts name them, in the order of the enumeration.
inline constexpr std::array<std::string_view, 15> kActionNames = {
    "open",       "read", "write", "truncate", "sync",   "unlink",  "rename",   "create",
    "syncfolder", "lock", "busy",  "unlock",   "shmmap", "shmlock", "shmunlock"};

constexpr bool IsOfDisk(DiskAction action) {
    return action < DiskAction::Lock;
}

struct DiskCall {
    DiskAction action;
    std::string path;                      ///< UTF-8; empty for a file without a name
    std::string to = {};                   ///< the new name of a file that is renamed
    std::int64_t offset = 0;               ///< in bytes; of a cut, the new length
    std::span<const std::byte> data = {};  ///< what is written
    bool made = false;                     ///< a file that was opened has been made
};

class DiskWatcher {
 public:
    virtual ~DiskWatcher() = default;
    /// False: the call fails without having been served; of a write, the first half may be there.
    virtual bool Allows(const DiskCall& call) = 0;
    /// The call has succeeded.
    virtual void Served(const DiskCall& call) = 0;
};

}  // namespace zv::ring

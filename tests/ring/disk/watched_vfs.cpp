#include "ring/disk/watched_vfs.h"

#include <sqlite3.h>

#include <algorithm>
#include <new>
#include <string>

namespace zv::ring {
namespace {

DiskWatcher*& Watcher() {
    static DiskWatcher* watcher = nullptr;
    return watcher;
}

/// What the engine keeps for an open file; the platform's own part lies behind it.
struct File {
    sqlite3_file base;
    std::string* path;
    bool folderIsOld;  ///< the first sync writes out the folder, too, as the platform's does
    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File& Of(sqlite3_file* file) {
    return *reinterpret_cast<File*>(file);
}
sqlite3_file* RealOf(sqlite3_file* file) {
    return Of(file).Real();
}

bool Allows(const DiskCall& call) {
    return Watcher() == nullptr || Watcher()->Allows(call);
}
int Report(int code, const DiskCall& call) {
    if (code == SQLITE_OK && Watcher() != nullptr) Watcher()->Served(call);
    return code;
}

int Close(sqlite3_file* file) {
    const int code = RealOf(file)->pMethods->xClose(RealOf(file));
    delete Of(file).path;
    return code;
}

int Read(sqlite3_file* file, void* buffer, int size, sqlite3_int64 offset) {
    if (!Allows({.action = DiskAction::Read, .path = *Of(file).path, .offset = offset})) {
        return SQLITE_IOERR_READ;
    }
    return RealOf(file)->pMethods->xRead(RealOf(file), buffer, size, offset);
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    const DiskCall call{
        .action = DiskAction::Write,
        .path = *Of(file).path,
        .offset = offset,
        .data = {static_cast<const std::byte*>(data), static_cast<std::size_t>(size)}};
    sqlite3_file* real = RealOf(file);
    if (!Allows(call)) {
        // A disk that is full or breaks has taken a part.
        if (size > 1) real->pMethods->xWrite(real, data, size / 2, offset);
        return SQLITE_IOERR_WRITE;
    }
    return Report(real->pMethods->xWrite(real, data, size, offset), call);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    const DiskCall call{.action = DiskAction::Truncate, .path = *Of(file).path, .offset = size};
    if (!Allows(call)) return SQLITE_IOERR_TRUNCATE;
    return Report(RealOf(file)->pMethods->xTruncate(RealOf(file), size), call);
}

int Sync(sqlite3_file* file, int) {
    const DiskCall call{.action = DiskAction::Sync, .path = *Of(file).path};
    if (!Allows(call)) return SQLITE_IOERR_FSYNC;
    Report(SQLITE_OK, call);
    if (Of(file).folderIsOld) {
        const DiskCall folder{.action = DiskAction::SyncFolder, .path = *Of(file).path};
        if (!Allows(folder)) return SQLITE_IOERR_DIR_FSYNC;
        Report(SQLITE_OK, folder);
        Of(file).folderIsOld = false;
    }
    return SQLITE_OK;
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return RealOf(file)->pMethods->xFileSize(RealOf(file), size);
}
int Lock(sqlite3_file* file, int level) {
    if (!Allows({.action = DiskAction::Lock, .path = *Of(file).path})) return SQLITE_IOERR_LOCK;
    if (!Allows({.action = DiskAction::Busy, .path = *Of(file).path})) return SQLITE_BUSY;
    return RealOf(file)->pMethods->xLock(RealOf(file), level);
}
int Unlock(sqlite3_file* file, int level) {
    const int code = RealOf(file)->pMethods->xUnlock(RealOf(file), level);
    const bool allowed = Allows({.action = DiskAction::Unlock, .path = *Of(file).path});
    return allowed ? code : SQLITE_IOERR_UNLOCK;
}
int CheckReservedLock(sqlite3_file* file, int* answer) {
    return RealOf(file)->pMethods->xCheckReservedLock(RealOf(file), answer);
}
int FileControl(sqlite3_file* file, int what, void* argument) {
    return RealOf(file)->pMethods->xFileControl(RealOf(file), what, argument);
}
int SectorSize(sqlite3_file* file) {
    return RealOf(file)->pMethods->xSectorSize(RealOf(file));
}
int Characteristics(sqlite3_file* file) {
    return RealOf(file)->pMethods->xDeviceCharacteristics(RealOf(file));
}

int ShmMap(sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
    if (extend != 0 && !Allows({.action = DiskAction::Open, .path = *Of(file).path + "-shm"})) {
        return SQLITE_IOERR_SHMMAP;
    }
    if (!Allows({.action = DiskAction::MapMemory, .path = *Of(file).path})) {
        return SQLITE_IOERR_SHMMAP;
    }
    return RealOf(file)->pMethods->xShmMap(RealOf(file), region, size, extend, memory);
}
int ShmLock(sqlite3_file* file, int offset, int count, int flags) {
    const std::string& path = *Of(file).path;
    if ((flags & SQLITE_SHM_UNLOCK) != 0) {
        const int code = RealOf(file)->pMethods->xShmLock(RealOf(file), offset, count, flags);
        return Allows({.action = DiskAction::UnlockMemory, .path = path}) ? code
                                                                          : SQLITE_IOERR_SHMLOCK;
    }
    if (!Allows({.action = DiskAction::LockMemory, .path = path})) return SQLITE_IOERR_SHMLOCK;
    if (!Allows({.action = DiskAction::Busy, .path = path})) return SQLITE_BUSY;
    return RealOf(file)->pMethods->xShmLock(RealOf(file), offset, count, flags);
}
void ShmBarrier(sqlite3_file* file) {
    RealOf(file)->pMethods->xShmBarrier(RealOf(file));
}
int ShmUnmap(sqlite3_file* file, int remove) {
    return RealOf(file)->pMethods->xShmUnmap(RealOf(file), remove);
}

// The version before files that are read in place: their reading would pass by the watcher.
const sqlite3_io_methods kMethods = {2,
                                     Close,
                                     Read,
                                     Write,
                                     Truncate,
                                     Sync,
                                     FileSize,
                                     Lock,
                                     Unlock,
                                     CheckReservedLock,
                                     FileControl,
                                     SectorSize,
                                     Characteristics,
                                     ShmMap,
                                     ShmLock,
                                     ShmBarrier,
                                     ShmUnmap,
                                     nullptr,
                                     nullptr};

sqlite3_vfs* Platform(sqlite3_vfs* own) {
    return static_cast<sqlite3_vfs*>(own->pAppData);
}

int Open(sqlite3_vfs* own, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    DiskCall call{.action = DiskAction::Open, .path = name != nullptr ? name : ""};
    if (!Allows(call)) return SQLITE_CANTOPEN;
    sqlite3_vfs* platform = Platform(own);
    int present = 1;
    if (name != nullptr && (flags & SQLITE_OPEN_CREATE) != 0) {
        platform->xAccess(platform, name, SQLITE_ACCESS_EXISTS, &present);
    }
    auto* path = new (std::nothrow) std::string(call.path);
    if (path == nullptr) return SQLITE_NOMEM;
    sqlite3_file* real = Of(file).Real();
    real->pMethods = nullptr;
    const int code = platform->xOpen(platform, name, real, flags, outFlags);
    if (code != SQLITE_OK) {
        delete path;
        return code;
    }
    call.made = present == 0;
    constexpr int kLogs = SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_SUPER_JOURNAL | SQLITE_OPEN_WAL;
    Of(file).path = path;
    Of(file).folderIsOld = call.made && (flags & kLogs) != 0;
    file->pMethods = &kMethods;
    return Report(SQLITE_OK, call);
}

int Delete(sqlite3_vfs* own, const char* name, int syncFolder) {
    const DiskCall call{.action = DiskAction::Remove, .path = name};
    if (!Allows(call)) return SQLITE_IOERR_DELETE;
    const int code = Report(Platform(own)->xDelete(Platform(own), name, 0), call);
    if (code != SQLITE_OK || syncFolder == 0) return code;
    const DiskCall folder{.action = DiskAction::SyncFolder, .path = name};
    if (!Allows(folder)) return SQLITE_IOERR_DIR_FSYNC;
    return Report(SQLITE_OK, folder);
}

int Access(sqlite3_vfs* own, const char* name, int flags, int* answer) {
    return Platform(own)->xAccess(Platform(own), name, flags, answer);
}
int FullPathname(sqlite3_vfs* own, const char* name, int size, char* full) {
    return Platform(own)->xFullPathname(Platform(own), name, size, full);
}

/// What is locked by a fault is not freed by waiting: whoever waits does so as often, but briefly.
int Sleep(sqlite3_vfs* own, int microseconds) {
    constexpr int kLongest = 100;
    Platform(own)->xSleep(Platform(own), std::min(microseconds, kLongest));
    return microseconds;
}

sqlite3_vfs Made() {
    sqlite3_vfs* platform = sqlite3_vfs_find(nullptr);
    sqlite3_vfs vfs = *platform;
    vfs.zName = "zv-watched";
    vfs.pNext = nullptr;
    vfs.pAppData = platform;
    vfs.szOsFile = static_cast<int>(sizeof(File)) + platform->szOsFile;
    vfs.xOpen = Open;
    vfs.xDelete = Delete;
    vfs.xAccess = Access;
    vfs.xFullPathname = FullPathname;
    vfs.xSleep = Sleep;
    return vfs;
}

}  // namespace

void InstallWatchedVfs() {
    static sqlite3_vfs vfs = Made();
    if (sqlite3_vfs_find(nullptr) != &vfs) sqlite3_vfs_register(&vfs, 1);
}

DiskWatcher* WatchVfs(DiskWatcher* watcher) {
    DiskWatcher* before = Watcher();
    Watcher() = watcher;
    return before;
}

DiskWatcher* VfsWatcher() {
    return Watcher();
}

}  // namespace zv::ring

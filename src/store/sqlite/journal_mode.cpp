#include "store/sqlite/journal_mode.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <utility>

#include "base/path.h"
#include "store/sqlite/file_system_of.h"

namespace zv::store::sqlite {
namespace {

std::function<bool(const std::string&)>& Scripted() {
    static std::function<bool(const std::string&)> answer;
    return answer;
}

/// The platform's own file access, with file methods of the version before shared memory.
class RollBackOnly {
 public:
    RollBackOnly() : base_(sqlite3_vfs_find(nullptr)), vfs_(*base_) {
        vfs_.zName = kName;
        vfs_.pNext = nullptr;
        vfs_.xOpen = Open;
        sqlite3_vfs_register(&vfs_, 0);
    }
    static constexpr const char* kName = "zv-share";
    static RollBackOnly& Instance() {
        static RollBackOnly instance;
        return instance;
    }

 private:
    static int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
        RollBackOnly& self = Instance();
        const int code = self.base_->xOpen(self.base_, name, file, flags, outFlags);
        if (code != SQLITE_OK || !file->pMethods) return code;
        // The platform has a few sets of methods, which live as long as the program does.
        sqlite3_mutex* mutex = sqlite3_mutex_alloc(SQLITE_MUTEX_STATIC_VFS1);
        sqlite3_mutex_enter(mutex);
        for (Methods& methods : self.methods_) {
            if (!methods.base) {
                methods = {file->pMethods, *file->pMethods};
                methods.own.iVersion = 1;
            }
            if (methods.base == file->pMethods || file->pMethods == &methods.own) {
                file->pMethods = &methods.own;
                break;
            }
        }
        const bool replaced = file->pMethods->iVersion == 1;
        sqlite3_mutex_leave(mutex);
        if (replaced) return SQLITE_OK;
        file->pMethods->xClose(file);
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }

    struct Methods {
        const sqlite3_io_methods* base = nullptr;
        sqlite3_io_methods own{};
    };
    sqlite3_vfs* base_;
    sqlite3_vfs vfs_;
    std::array<Methods, 8> methods_;
};

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// The first field of the first row; the engine's code in `code`.
std::string Ask(sqlite3* database, const std::string& sql, int& code) {
    sqlite3_stmt* handle = nullptr;
    code = sqlite3_prepare_v2(database, sql.c_str(), -1, &handle, nullptr);
    const std::unique_ptr<sqlite3_stmt, Finalize> statement(handle);
    if (code != SQLITE_OK) return {};
    code = sqlite3_step(handle);
    if (code != SQLITE_ROW) return {};
    code = SQLITE_OK;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle, 0));
    return text ? text : "";
}

}  // namespace

bool IsOnShare(const std::string& path) {
    if (const auto& answer = Scripted()) return answer(path);
    return IsShareType(FileSystemOf(PathOf(path)));
}

bool IsShareType(std::string_view fileSystem) {
    static constexpr std::array<std::string_view, 22> kShares{
        "nfs",  "nfs3",   "nfs4",   "cifs",   "smb",    "smb2", "smb3",  "smbfs",
        "9p",   "afs",    "coda",   "ceph",   "lustre", "gfs2", "ocfs2", "ncpfs",
        "gpfs", "beegfs", "vboxsf", "prl_fs", "remote", "davfs"};
    for (const std::string_view share : kShares) {
        if (fileSystem == share) return true;
    }
    if (!fileSystem.starts_with("fuse")) return false;
    // A program answers for such a file system, mostly one that speaks to another machine. These
    // keep their files on this one.
    static constexpr std::array<std::string_view, 9> kLocal{
        "fuseblk",       "fuse.fuse-overlayfs", "fuse.ntfs",  "fuse.ntfs-3g", "fuse.exfat",
        "fuse.mergerfs", "fuse.gocryptfs",      "fuse.encfs", "fuse.bindfs"};
    return std::find(kLocal.begin(), kLocal.end(), fileSystem) == kLocal.end();
}

ScriptedShares::ScriptedShares(std::function<bool(const std::string&)> answer) {
    Scripted() = std::move(answer);
}
ScriptedShares::~ScriptedShares() {
    Scripted() = nullptr;
}

const char* ShareVfs() {
    RollBackOnly::Instance();
    return RollBackOnly::kName;
}

bool UsesWriteAheadLog(const std::string& path) {
    // Two fields of the head hold the version of the format for writing and for reading.
    constexpr std::streamoff kVersions = 18;
    constexpr char kWriteAhead = 2;
    std::ifstream file(PathOf(path), std::ios::binary);
    std::array<char, 2> versions{};
    file.seekg(kVersions);
    file.read(versions.data(), versions.size());
    return file && (versions[0] == kWriteAhead || versions[1] == kWriteAhead);
}

std::string RefusedOnShare(const std::string& path) {
    return "The database file is in write-ahead mode, which would destroy it on a network share. "
           "Close all programs and run: zvdb mode \"" +
           path + "\" rollback";
}

std::string JournalMode(sqlite3* database) {
    int code = SQLITE_OK;
    return Ask(database, "pragma journal_mode", code);
}

int SetJournalMode(sqlite3* database, std::string_view mode) {
    int code = SQLITE_OK;
    const std::string made = Ask(database, "pragma main.journal_mode=" + std::string(mode), code);
    if (code != SQLITE_OK) return code;
    return made == mode ? SQLITE_OK : SQLITE_BUSY;
}

}  // namespace zv::store::sqlite

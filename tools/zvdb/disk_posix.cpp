#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "zvdb/disk_system.h"

namespace zv::zvdb::disk {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kReadWrite = 0666;

[[noreturn]] void Fail(const char* what, const fs::path& file) {
    throw fs::filesystem_error(what, file, std::error_code(errno, std::generic_category()));
}

class Descriptor {
 public:
    Descriptor(const char* what, const fs::path& file, int flags, mode_t mode = 0)
        : number_(open(file.c_str(), flags | O_CLOEXEC, mode)) {
        if (number_ < 0) Fail(what, file);
    }
    ~Descriptor() { close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return number_; }

 private:
    int number_;
};

bool MakesNoSense(int error) {
    return error == EINVAL || error == ENOTSUP || error == EROFS || error == EACCES;
}

}  // namespace

namespace system {

void CreateEmpty(const fs::path& file) {
    Descriptor("create", file, O_WRONLY | O_CREAT | O_EXCL, kReadWrite);
}

void CreateEmpty(const fs::path& file, const fs::path& other, Like like) {
    struct stat wanted {};
    if (stat(other.c_str(), &wanted) != 0) Fail("stat", other);
    const Descriptor made("create", file, O_WRONLY | O_CREAT | O_EXCL, 0600);
    mode_t mode = wanted.st_mode & kReadWrite;
    struct stat present {};
    if (fstat(made.Number(), &present) != 0) Fail("stat", file);
    if (like == Like::Whole && present.st_uid != wanted.st_uid &&
        fchown(made.Number(), wanted.st_uid, static_cast<gid_t>(-1)) != 0) {
        // Who may not give a file away keeps it.
        errno = 0;
    }
    if (present.st_gid != wanted.st_gid &&
        fchown(made.Number(), static_cast<uid_t>(-1), wanted.st_gid) != 0) {
        // The rights of the other file's group would go to another group.
        mode = (mode & ~mode_t{0060}) | ((mode & 0006) << 3 & mode);
    }
    if (fchmod(made.Number(), mode | 0600) != 0) Fail("chmod", file);
}

void Sync(const fs::path& file) {
    const Descriptor opened("open", file, O_RDONLY);
    if (fsync(opened.Number()) != 0) Fail("sync", file);
}

void SyncFolderOf(const fs::path& file) {
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const int number = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) {
        if (MakesNoSense(errno)) return;
        Fail("open", folder);
    }
    const int error = fsync(number) == 0 ? 0 : errno;
    close(number);
    if (error == 0 || MakesNoSense(error)) return;
    errno = error;
    Fail("sync", folder);
}

void Rename(const fs::path& from, const fs::path& to, bool replace) {
    if (replace) {
        if (rename(from.c_str(), to.c_str()) != 0) Fail("rename", to);
    } else if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
        // File systems without this kind of renaming know links, or are asked before.
        if (errno != EINVAL && errno != ENOSYS) Fail("rename", to);
        if (fs::exists(fs::symlink_status(to))) {
            errno = EEXIST;
            Fail("rename", to);
        }
        if (rename(from.c_str(), to.c_str()) != 0) Fail("rename", to);
    }
}

}  // namespace system

namespace {

/// A user who may not write another user's left-over file may still lock it.
int OpenClaim(const fs::path& file) {
    const int number = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kReadWrite);
    if (number >= 0 || errno != EACCES) return number;
    const int reading = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (reading < 0) errno = EACCES;
    return reading;
}

bool HasName(int number, const fs::path& file) {
    struct stat opened {};
    struct stat named {};
    return fstat(number, &opened) == 0 && lstat(file.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace

Claim::Claim(const fs::path& file) : file_(file) {
    while (true) {
        const int number = OpenClaim(file);
        if (number < 0) Fail("create", file);
        // Belongs to this opening of the file: other handles of the program do not let go of it.
        if (flock(number, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            close(number);
            if (error == EINTR) continue;
            if (error == EWOULDBLOCK) return;
            errno = error;
            Fail("lock", file);
        }
        if (HasName(number, file)) {
            handle_ = number;
            return;
        }
        // The program that had it let go of it meanwhile, and the name with it.
        close(number);
    }
}

Claim::~Claim() {
    if (!IsHeld()) return;
    unlink(file_.c_str());
    close(static_cast<int>(handle_));
}

bool IsLocked(const fs::path& file) {
    const int number = open(file.c_str(), O_RDWR | O_CLOEXEC);
    if (number < 0) return false;
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    const bool locked = fcntl(number, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    // Closing lets go of this process's own locks on the file; the engine has none on a file that
    // is no part of an open database.
    close(number);
    return locked;
}

}  // namespace zv::zvdb::disk

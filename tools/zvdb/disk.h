// What the system is asked of files beyond the standard library.
#pragma once

#include <cstdint>
#include <filesystem>

namespace zv::zvdb::disk {

enum class Like {
    Contents,  ///< those who may read the other file may read this one, and nobody else
    Whole,     ///< it will take the other file's place: its owner too, where that is allowed
};

/// Makes an empty file with the rights of any new one. All throw std::filesystem::filesystem_error;
/// making a file, also when there is one of that name.
void CreateEmpty(const std::filesystem::path& file);
/// Makes an empty file with the rights of another one, never wider. Its owner can always write it.
void CreateEmpty(const std::filesystem::path& file, const std::filesystem::path& other, Like like);

/// Returns when the file's contents are on the disk.
void Sync(const std::filesystem::path& file);
/// Returns when the names in the folder of `file` are on the disk. Folders that the system does not
/// let anyone write out are passed over.
void SyncFolderOf(const std::filesystem::path& file);

/// Gives a file another name in its folder, on the disk when it returns. What has that name already
/// is replaced when `replace`, otherwise it is an error.
void Rename(const std::filesystem::path& from, const std::filesystem::path& to, bool replace);

/// A file that is not there is no error.
void Remove(const std::filesystem::path& file);

enum class Request { Create, Sync, SyncFolder, Rename, Remove };

/// Hears of the requests of these functions. For tests, which let one of them fail or note what is
/// not on the disk yet.
class Observer {
 public:
    virtual ~Observer() = default;
    /// May throw std::filesystem::filesystem_error, which takes the place of the request. `to` is
    /// the new name of a file that is renamed.
    virtual void Before(Request request, const std::filesystem::path& file,
                        const std::filesystem::path& to) = 0;
    /// The request has succeeded.
    virtual void After(Request request, const std::filesystem::path& file,
                       const std::filesystem::path& to) = 0;
};

/// While it lives, `observer` hears of every request.
class Observed {
 public:
    explicit Observed(Observer& observer);
    ~Observed();
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;
};

/// A name that one program at a time has, whatever ends it: the system lets go of it for a program
/// that has died. The file of that name is empty and goes with the claim; one that is left over is
/// taken over.
class Claim {
 public:
    /// Throws std::filesystem::filesystem_error when the file cannot be made.
    explicit Claim(const std::filesystem::path& file);
    ~Claim();
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    /// False: another program has it, or another claim of this one.
    bool IsHeld() const { return handle_ != kNone; }

 private:
    static constexpr std::intptr_t kNone = -1;
    std::filesystem::path file_;
    std::intptr_t handle_ = kNone;  ///< the system's
};

/// A program has locked a part of the file. Only says what can be known without changing anything.
bool IsLocked(const std::filesystem::path& file);

}  // namespace zv::zvdb::disk

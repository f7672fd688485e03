// A database file that is made under another name and takes its own when it is complete.
//
// The engine takes a log or journal beside a file for the file's own. What lies beside the name of
// a new file belongs to one that is gone - deleted, or moved away without its log, which may hold
// rows that somebody counts on. It is therefore set aside and never deleted.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zvdb/disk.h"

namespace zv::zvdb {

class NewFile {
 public:
    /// `path` is the file's own name. Makes the empty file Part(); whatever a run that has died
    /// left under that name goes. Its rights are those of the file that is there, which it will
    /// replace, else those of `source` unless that is empty. Throws FileError when another run is
    /// making the file, or when one is there and not to be replaced;
    /// std::filesystem::filesystem_error.
    NewFile(const std::string& path, const std::string& source, bool replace);
    /// Unless it was placed, nothing stays.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    static std::string PartOf(const std::string& path) { return path + ".zvdb-part"; }
    /// Is there while a run makes the file.
    static std::string ClaimOf(const std::string& path) { return path + ".zvdb-claim"; }
    /// What will be set aside, a sentence each.
    static std::vector<std::string> ToSetAside(const std::string& path);
    /// The names beside `path` that the engine would take for the file's log or journal.
    static std::vector<std::string> NeighboursOf(const std::string& path);

    const std::string& Part() const { return part_; }
    /// Nobody has the part open. Neighbours are set aside, the file gets its name, all of it is on
    /// the disk. Throws FileError when a log of the part is left, EngineError when a program still
    /// has a neighbour open, std::filesystem::filesystem_error; nothing has changed then but what
    /// Leftovers names.
    void Place();
    /// The placed file is no good: it goes, and the neighbours come back. Not for one that replaced
    /// another, which stays.
    void TakeBack();
    /// What could not be undone when placing or taking back failed, behind "; " each: for the end
    /// of the message that says so.
    std::string Leftovers() const;

 private:
    struct Move {
        std::filesystem::path from;
        std::filesystem::path to;
    };
    void MakePart(const std::string& source);
    void RemovePart();
    void SetAside();
    void BringBack();
    void RefusePartWithLog() const;

    std::string path_;
    std::string part_;
    disk::Claim claim_;
    bool replaces_;  ///< a file that is there
    bool placed_ = false;
    std::vector<Move> aside_;
};

/// A file that a program has open must not be pulled away under it: its write-ahead log would then
/// be taken for the new file's. Throws EngineError (SQLITE_BUSY).
void RefuseWhileInUse(const std::string& path);

/// Places the file and looks whether it is sound under its own name, with all tables of the system;
/// otherwise it is taken back. Throws like Place, and FileError, which names what is left over.
void PlaceAndCheck(NewFile& file, const std::string& path);

}  // namespace zv::zvdb

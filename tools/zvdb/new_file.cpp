#include "zvdb/new_file.h"

#include <array>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/path.h"
#include "zvdb/check.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kShared = "-shm";  // holds nothing that is not in the log
constexpr std::array<const char*, 3> kSuffixes = {"-wal", kShared.data(), "-journal"};

bool IsThere(const std::string& path) {
    std::error_code failed;
    return fs::exists(fs::symlink_status(PathOf(path), failed));
}

/// With this in front of their suffixes the neighbours fit a file of this name, should it come
/// back.
std::string FreeNameFor(const std::string& path) {
    for (int number = 1;; number++) {
        std::string name = path + ".aside" + (number == 1 ? "" : "-" + std::to_string(number));
        bool taken = IsThere(name);
        for (const char* suffix : kSuffixes) taken = taken || IsThere(name + suffix);
        if (!taken) return name;
    }
}

/// False when it is still there.
bool RemoveIfPossible(const fs::path& file) {
    try {
        disk::Remove(file);
        return true;
    } catch (const fs::filesystem_error&) {
        return false;
    }
}

}  // namespace

std::vector<std::string> NewFile::NeighboursOf(const std::string& path) {
    std::vector<std::string> names;
    for (const char* suffix : kSuffixes) {
        if (IsThere(path + suffix)) names.push_back(path + suffix);
    }
    return names;
}

std::vector<std::string> NewFile::ToSetAside(const std::string& path) {
    const std::string free = FreeNameFor(path);
    std::vector<std::string> sentences;
    for (const std::string& name : NeighboursOf(path)) {
        sentences.push_back("\"" + name + "\" belongs to another file and is set aside as \"" +
                            free + name.substr(path.size()) + "\"");
    }
    return sentences;
}

void NewFile::RemovePart() {
    RemoveIfPossible(PathOf(part_));
    for (const std::string& neighbour : NeighboursOf(part_)) RemoveIfPossible(PathOf(neighbour));
}

NewFile::NewFile(const std::string& path, const std::string& source, bool replace)
    : path_(path), part_(PartOf(path)), claim_(PathOf(ClaimOf(path))), replaces_(IsThere(path)) {
    if (!claim_.IsHeld()) {
        throw FileError("another zvdb is at work on \"" + path + "\"; try again when it has ended");
    }
    if (replaces_ && !replace) throw FileError("\"" + path + "\" is there already");
    MakePart(source);
}

void NewFile::MakePart(const std::string& source) {
    RemovePart();
    if (replaces_) {
        disk::CreateEmpty(PathOf(part_), PathOf(path_), disk::Like::Whole);
    } else if (!source.empty()) {
        disk::CreateEmpty(PathOf(part_), PathOf(source), disk::Like::Contents);
    } else {
        disk::CreateEmpty(PathOf(part_));
    }
}

NewFile::~NewFile() {
    if (placed_) return;
    try {
        RemovePart();
    } catch (const std::exception&) {
        // Without memory for the names the part stays; the next run removes it.
    }
}

void NewFile::SetAside() {
    const auto neighbours = NeighboursOf(path_);
    for (const std::string& name : neighbours) {
        if (disk::IsLocked(PathOf(name))) {
            throw EngineError(SQLITE_BUSY, "a program still uses \"" + name + "\"");
        }
    }
    const std::string free = FreeNameFor(path_);
    for (const std::string& name : neighbours) {
        const fs::path to = PathOf(free + name.substr(path_.size()));
        aside_.push_back({PathOf(name), to});
        disk::Rename(PathOf(name), to, false);
    }
}

void NewFile::BringBack() {
    for (const Move& move : std::exchange(aside_, {})) {
        // One that could not be moved is still there, and what is aside is somebody else's.
        if (IsThere(Utf8Of(move.from))) continue;
        try {
            disk::Rename(move.to, move.from, false);
        } catch (const fs::filesystem_error&) {
            // The name may be back and only not be known to be on the disk.
            if (!IsThere(Utf8Of(move.from))) aside_.push_back(move);
        }
    }
}

// What the engine could not write back when the part was closed it would not find under the new
// name; a part that is renamed without it has lost rows.
void NewFile::RefusePartWithLog() const {
    for (const std::string& name : NeighboursOf(part_)) {
        if (name.ends_with(kShared)) continue;
        throw FileError("not all of the new file could be written: its log is left");
    }
}

void NewFile::Place() {
    RefusePartWithLog();
    disk::Sync(PathOf(part_));
    try {
        SetAside();
        disk::Rename(PathOf(part_), PathOf(path_), replaces_);
    } catch (...) {
        // It may have its name although that is not known to be on the disk: the neighbours of
        // another file must not come back beside it.
        placed_ = !IsThere(part_);
        if (placed_) {
            TakeBack();
        } else {
            BringBack();
        }
        throw;
    }
    placed_ = true;
}

void NewFile::TakeBack() {
    if (replaces_) return;
    bool gone = RemoveIfPossible(PathOf(path_));
    // Those of the file that goes; the others are aside.
    for (const std::string& name : NeighboursOf(path_)) {
        gone = RemoveIfPossible(PathOf(name)) && gone;
    }
    // The engine would take what comes back for the log of the file that stays.
    if (gone) BringBack();
}

std::string NewFile::Leftovers() const {
    std::string sentences;
    if (placed_ && !replaces_ && IsThere(path_)) {
        sentences += "; \"" + path_ + "\" could not be taken back and is not to be trusted";
    }
    for (const Move& move : aside_) {
        sentences += "; \"" + Utf8Of(move.from) + "\" is set aside as \"" + Utf8Of(move.to) + "\"";
    }
    return sentences;
}

void RefuseWhileInUse(const std::string& path) {
    if (!IsThere(path)) return;
    try {
        Engine(path, SQLITE_OPEN_READWRITE, Engine::Users::Alone);
    } catch (const EngineError& error) {
        // Whatever else is wrong with the file is no reason to keep it.
        if (error.Code() == SQLITE_BUSY) throw;
    }
}

namespace {

void CheckPlaced(const std::string& path) {
    Engine engine(path);
    auto problems = InspectEmbedded(engine)->Damage();
    if (problems.empty()) problems = CheckSchema(engine).problems;
    if (!problems.empty()) throw FileError("the new file is not sound: " + problems.front());
}

std::string ReasonOf(const std::exception& error) {
    const auto* ofFile = dynamic_cast<const fs::filesystem_error*>(&error);
    return ofFile == nullptr ? error.what()
                             : Utf8Of(ofFile->path1()) + ": " + ofFile->code().message();
}

}  // namespace

void PlaceAndCheck(NewFile& file, const std::string& path) {
    try {
        file.Place();
        try {
            CheckPlaced(path);
        } catch (...) {
            file.TakeBack();
            throw;
        }
    } catch (const std::exception& error) {
        const std::string leftovers = file.Leftovers();
        if (leftovers.empty()) throw;
        throw FileError(ReasonOf(error) + leftovers);
    }
}

}  // namespace zv::zvdb

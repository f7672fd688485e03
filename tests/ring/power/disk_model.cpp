#include "disk_model.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "base/path.h"

namespace zv::ring {
namespace {

/// Shared memory of the running programs, which is gone with them.
constexpr const char* kShared = "-shm";

std::size_t Below(std::mt19937& random, std::size_t end) {
    return random() % end;
}

void Overwrite(std::string& bytes, std::size_t offset, std::string_view piece) {
    if (piece.empty()) return;
    if (bytes.size() < offset + piece.size()) bytes.resize(offset + piece.size(), '\0');
    std::copy(piece.begin(), piece.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

}  // namespace

DiskModel::DiskModel(std::filesystem::path folder) : folder_(std::move(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
        std::ifstream in(entry.path(), std::ios::binary);
        auto file = std::make_shared<File>();
        file->bytes.assign(std::istreambuf_iterator<char>(in), {});
        onDisk_[Utf8Of(entry.path().filename())] = std::move(file);
    }
    present_ = onDisk_;
}

void DiskModel::Apply(const Change& change, std::string& bytes) {
    if (change.isCut) {
        bytes.resize(change.offset, '\0');
    } else {
        Overwrite(bytes, change.offset, change.bytes);
    }
}

void DiskModel::Apply(const NameChange& change, Names& names) {
    if (!change.from.empty()) names.erase(change.from);
    if (!change.to.empty()) names[change.to] = change.file;
}

void DiskModel::Rename(const std::string& from, const std::string& to) {
    const auto file = present_.find(from);
    if (file == present_.end()) return;
    NameChange change{from, to, file->second};
    Apply(change, present_);
    pending_.push_back(std::move(change));
}

void DiskModel::File::Note(const DiskCall& call) {
    const auto offset = static_cast<std::size_t>(call.offset);
    if (call.action == DiskAction::Write) {
        const auto* first = reinterpret_cast<const char*>(call.data.data());
        pending.push_back({offset, std::string(first, call.data.size()), false});
    } else if (call.action == DiskAction::Truncate) {
        pending.push_back({offset, {}, true});
    } else {
        for (const Change& change : std::exchange(pending, {})) Apply(change, bytes);
    }
}

void DiskModel::Note(const DiskCall& call) {
    const std::filesystem::path path = PathOf(call.path);
    if (path.parent_path() != folder_ || call.path.ends_with(kShared)) return;
    const std::string name = Utf8Of(path.filename());
    switch (call.action) {
        case DiskAction::Open:
        case DiskAction::Create:
            if (call.made) {
                NameChange change{{}, name, std::make_shared<File>()};
                Apply(change, present_);
                pending_.push_back(std::move(change));
            }
            return;
        case DiskAction::Write:
        case DiskAction::Truncate:
        case DiskAction::Sync:
            // A file whose name is gone is lost with the power.
            if (const auto file = present_.find(name); file != present_.end()) {
                file->second->Note(call);
            }
            return;
        case DiskAction::Remove:
            return Rename(name, {});
        case DiskAction::Rename:
            return Rename(name, Utf8Of(PathOf(call.to).filename()));
        case DiskAction::SyncFolder:
            for (const NameChange& change : std::exchange(pending_, {})) Apply(change, onDisk_);
            return;
        case DiskAction::Read:
        case DiskAction::Lock:
        case DiskAction::Busy:
        case DiskAction::Unlock:
        case DiskAction::MapMemory:
        case DiskAction::LockMemory:
        case DiskAction::UnlockMemory:
            return;
    }
}

std::string DiskModel::Remains(const File& file, Fate fate, std::mt19937& random,
                               std::size_t sector) {
    std::string bytes = file.bytes;
    for (const Change& change : file.pending) {
        if (fate == Fate::Lost) break;
        if (fate == Fate::Kept) {
            Apply(change, bytes);
            continue;
        }
        if (change.isCut) {
            if (Below(random, 2) == 0) Apply(change, bytes);
            continue;
        }
        const std::size_t end = change.offset + change.bytes.size();
        for (std::size_t at = change.offset; at < end;) {
            const std::size_t next = std::min(end, (at / sector + 1) * sector);
            std::string_view piece(change.bytes);
            piece = piece.substr(at - change.offset, next - at);
            // Half of the sectors are there, a sixth is lost, the rest is torn.
            switch (Below(random, 6)) {
                case 0:
                    piece = {};
                    break;
                case 1:
                case 2:
                    piece = piece.substr(0, Below(random, piece.size() + 1));
                    break;
                default:
                    break;
            }
            Overwrite(bytes, at, piece);
            at = next;
        }
    }
    return bytes;
}

bool DiskModel::HasPending() const {
    return !pending_.empty() ||
           std::any_of(present_.begin(), present_.end(),
                       [](const auto& entry) { return !entry.second->pending.empty(); });
}

Image DiskModel::Cut(std::mt19937& random, std::size_t sector) const {
    const auto fate = static_cast<Fate>(std::min<std::size_t>(Below(random, 4), 2));
    std::size_t kept = pending_.size();
    if (fate == Fate::Lost) kept = 0;
    if (fate == Fate::Mixed) kept = Below(random, pending_.size() + 1);
    Names names = onDisk_;
    for (std::size_t i = 0; i < kept; i++) Apply(pending_[i], names);
    Image image;
    for (const auto& [name, file] : names) image[name] = Remains(*file, fate, random, sector);
    return image;
}

}  // namespace zv::ring

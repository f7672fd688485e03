// What is on a disk when the power fails: what was written out for certain, and of all that came
// after it anything, in pieces of a sector.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "ring/disk/disk_call.h"

namespace zv::ring {

/// The files of a folder after a power failure: name and bytes of each.
using Image = std::map<std::string, std::string>;

class DiskModel {
 public:
    /// Everything that lies in the folder is on the disk.
    explicit DiskModel(std::filesystem::path folder);

    /// A call that has succeeded. What lies in other folders is passed over.
    void Note(const DiskCall& call);

    /// What a failure of the power leaves now. Names come and go in their order: some of the last
    /// changes may be missing, none between. Bytes are lost, kept or torn sector by sector, in any
    /// order. `sector` in bytes.
    Image Cut(std::mt19937& random, std::size_t sector) const;
    /// Not everything is on the disk.
    bool HasPending() const;

 private:
    struct Change {
        std::size_t offset = 0;
        std::string bytes;
        bool isCut = false;  ///< the file ends at `offset`
    };
    struct File {
        /// A write, a cut or a sync.
        void Note(const DiskCall& call);
        std::string bytes;            ///< on the disk
        std::vector<Change> pending;  ///< since
    };
    using Names = std::map<std::string, std::shared_ptr<File>>;
    struct NameChange {
        std::string from;            ///< a name that goes; may be empty
        std::string to;              ///< a name that comes; may be empty
        std::shared_ptr<File> file;  ///< that has it
    };
    enum class Fate { Lost, Kept, Mixed };

    static void Apply(const Change& change, std::string& bytes);
    static void Apply(const NameChange& change, Names& names);
    static std::string Remains(const File& file, Fate fate, std::mt19937& random,
                               std::size_t sector);
    void Rename(const std::string& from, const std::string& to);

    std::filesystem::path folder_;
    Names present_;
    Names onDisk_;
    std::vector<NameChange> pending_;
};

}  // namespace zv::ring

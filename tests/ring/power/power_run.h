// A run in which the power fails again and again, and what is found in what is left.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ring/disk/disk_call.h"

namespace zv::ring {

/// What is wrong with what a folder holds, a sentence each.
using Promise = std::function<std::vector<std::string>(const std::filesystem::path& folder)>;

/// What somebody does on a disk, step by step.
class Play {
 public:
    virtual ~Play() = default;
    virtual std::filesystem::path Folder() const = 0;
    /// False when there is nothing left to do. Throws when a step is not acknowledged.
    virtual bool Step() = 0;
    /// What has been promised so far, whenever that is asked for.
    virtual Promise Now() const = 0;
};

/// The work of a user for days: adds, changes, marks, deletes, generates, closes. Goes on for ever.
std::unique_ptr<Play> MakeWork(std::uint32_t seed, bool rollBack);

struct PowerPoint {
    std::string flow = "work";  ///< or "work rollback", or a flow of flow.h
    std::uint32_t seed = 1;
    std::size_t images = 100;  ///< at most
    std::size_t sector = 512;  ///< in bytes

    /// A line for each field, as in the files of a corpus.
    std::string Text() const;
    /// Throws std::runtime_error when the text is no point.
    static PowerPoint Parse(const std::string& text);
};

struct PowerTally {
    std::size_t images = 0;
    std::size_t unsynced = 0;        ///< of these, taken when not all was on the disk
    std::vector<std::string> wrong;  ///< image and sentence, each
};

/// Calls of which the disk hears nothing: a program that leaves them out, for the self-test.
using LeavesOut = std::function<bool(const DiskCall& call)>;

PowerTally PlayPower(const PowerPoint& point, const LeavesOut& leavesOut = {});

}  // namespace zv::ring

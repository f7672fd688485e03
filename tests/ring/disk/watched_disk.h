// The disk as a test sees it: every call that the embedded engine or zvdb makes passes by a
// watcher. Nothing is told to the real disk to be written out, because nothing here loses power.
#pragma once

#include <memory>

#include "ring/disk/disk_call.h"
#include "zvdb/disk.h"

namespace zv::ring {

/// Takes the place of the engine's access to files from the first construction on, for the rest of
/// the program. Without a watcher all calls are passed on.
class WatchedDisk {
 public:
    /// While it lives, `watcher` hears of all calls. One at a time.
    explicit WatchedDisk(DiskWatcher& watcher);
    ~WatchedDisk();
    WatchedDisk(const WatchedDisk&) = delete;
    WatchedDisk& operator=(const WatchedDisk&) = delete;

    /// While it lives, the watcher hears of nothing: the test itself is at work.
    class Unwatched {
     public:
        Unwatched();
        ~Unwatched();
        Unwatched(const Unwatched&) = delete;
        Unwatched& operator=(const Unwatched&) = delete;

     private:
        DiskWatcher* watcher_;
    };

    /// Puts the engine's access to files in place; later calls do nothing.
    static void Install();

 private:
    std::unique_ptr<zvdb::disk::Observer> own_;
    zvdb::disk::Observed observed_;
};

}  // namespace zv::ring

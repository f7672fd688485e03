// The embedded engine's access to files, with a watcher in front of the platform's own.
#pragma once

#include "ring/disk/disk_call.h"

namespace zv::ring {

/// Registers it as the one that the engine uses unasked; later calls do nothing.
void InstallWatchedVfs();
/// Null: nobody hears of the calls. Answers the one before.
DiskWatcher* WatchVfs(DiskWatcher* watcher);
DiskWatcher* VfsWatcher();

}  // namespace zv::ring

#include "ring/disk/watched_disk.h"

#include <system_error>

#include "base/path.h"
#include "ring/disk/watched_vfs.h"

namespace zv::ring {
namespace {

namespace fs = std::filesystem;
using zvdb::disk::Request;

DiskAction ActionOf(Request request) {
    switch (request) {
        case Request::Create:
            return DiskAction::Create;
        case Request::Sync:
            return DiskAction::Sync;
        case Request::SyncFolder:
            return DiskAction::SyncFolder;
        case Request::Rename:
            return DiskAction::Rename;
        case Request::Remove:
            break;
    }
    return DiskAction::Remove;
}

/// What zvdb asks by itself comes to the watcher of the engine's calls.
class OwnRequests final : public zvdb::disk::Observer {
 public:
    void Before(Request request, const fs::path& file, const fs::path& to) override {
        if (VfsWatcher() == nullptr || VfsWatcher()->Allows(CallOf(request, file, to))) return;
        throw fs::filesystem_error("fault", file, std::make_error_code(std::errc::io_error));
    }
    void After(Request request, const fs::path& file, const fs::path& to) override {
        if (VfsWatcher() != nullptr) VfsWatcher()->Served(CallOf(request, file, to));
    }

 private:
    static DiskCall CallOf(Request request, const fs::path& file, const fs::path& to) {
        return {.action = ActionOf(request),
                .path = Utf8Of(file),
                .to = Utf8Of(to),
                .made = request == Request::Create};
    }
};

}  // namespace

WatchedDisk::WatchedDisk(DiskWatcher& watcher)
    : own_(std::make_unique<OwnRequests>()), observed_(*own_) {
    InstallWatchedVfs();
    WatchVfs(&watcher);
}

WatchedDisk::~WatchedDisk() {
    WatchVfs(nullptr);
}

WatchedDisk::Unwatched::Unwatched() : watcher_(WatchVfs(nullptr)) {}
WatchedDisk::Unwatched::~Unwatched() {
    WatchVfs(watcher_);
}

void WatchedDisk::Install() {
    InstallWatchedVfs();
}

}  // namespace zv::ring

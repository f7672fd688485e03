#include "zvdb/disk.h"

#include "zvdb/disk_system.h"

namespace zv::zvdb::disk {
namespace {

namespace fs = std::filesystem;

Observer*& Present() {
    static Observer* observer = nullptr;
    return observer;
}

template <class Serve>
void Ask(Request request, const fs::path& file, const fs::path& to, Serve serve) {
    if (Present() != nullptr) Present()->Before(request, file, to);
    serve();
    if (Present() != nullptr) Present()->After(request, file, to);
}

}  // namespace

Observed::Observed(Observer& observer) {
    Present() = &observer;
}
Observed::~Observed() {
    Present() = nullptr;
}

void CreateEmpty(const fs::path& file) {
    Ask(Request::Create, file, {}, [&] { system::CreateEmpty(file); });
}

void CreateEmpty(const fs::path& file, const fs::path& other, Like like) {
    Ask(Request::Create, file, {}, [&] { system::CreateEmpty(file, other, like); });
}

void Sync(const fs::path& file) {
    Ask(Request::Sync, file, {}, [&] { system::Sync(file); });
}

void SyncFolderOf(const fs::path& file) {
    Ask(Request::SyncFolder, file, {}, [&] { system::SyncFolderOf(file); });
}

void Rename(const fs::path& from, const fs::path& to, bool replace) {
    Ask(Request::Rename, from, to, [&] { system::Rename(from, to, replace); });
    SyncFolderOf(to);
}

void Remove(const fs::path& file) {
    Ask(Request::Remove, file, {}, [&] { fs::remove(file); });
}

}  // namespace zv::zvdb::disk

// The requests of disk.h as the system serves them, which differs from platform to platform.
#pragma once

#include <filesystem>

#include "zvdb/disk.h"

namespace zv::zvdb::disk::system {

void CreateEmpty(const std::filesystem::path& file);
void CreateEmpty(const std::filesystem::path& file, const std::filesystem::path& other, Like like);
void Sync(const std::filesystem::path& file);
void SyncFolderOf(const std::filesystem::path& file);
/// The new name is not on the disk until the folder is.
void Rename(const std::filesystem::path& from, const std::filesystem::path& to, bool replace);

}  // namespace zv::zvdb::disk::system

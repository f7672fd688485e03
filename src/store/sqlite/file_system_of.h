// The kind of file system that a file lies on.
#pragma once

#include <filesystem>
#include <string>

namespace zv::store::sqlite {

/// Its name as the system calls it - "ext4", "nfs4", "fuse.sshfs" - or "remote" where the system
/// tells that alone. The file need not exist. Empty when it cannot be told.
std::string FileSystemOf(const std::filesystem::path& file);

}  // namespace zv::store::sqlite

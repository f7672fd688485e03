// The kind of file system that a file lies on.
#pragma once

#include <filesystem>
#include <string>

namespace zv::store::sqlite {

/// Its name as the system calls it - "ext4", "nfs4", "fuse.sshfs" - or "remote" where the system
/// says no more. The file need not exist. Empty when it is not known.
std::string FileSystemOf(const std::filesystem::path& file);

}  // namespace zv::store::sqlite

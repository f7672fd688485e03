// Whether a file is still the one that was opened.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

#include "base/path.h"

namespace zv::zvdb::access {

struct FileState {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written;

    bool operator==(const FileState&) const = default;
};

inline FileState StateOf(const std::string& utf8) {
    const std::filesystem::path file = PathOf(utf8);
    std::error_code failed;
    return {std::filesystem::file_size(file, failed),
            std::filesystem::last_write_time(file, failed)};
}

}  // namespace zv::zvdb::access

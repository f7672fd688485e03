#pragma once

#include <filesystem>
#include <random>
#include <string>

#include "base/path.h"

namespace zv::test {

/// An empty folder that is removed with everything in it.
class TemporaryFolder {
 public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("zv-test-" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code failure;
        std::filesystem::remove_all(path_, failure);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(const char* utf8) const { return path_ / PathOf(utf8); }

 private:
    std::filesystem::path path_;
};

}  // namespace zv::test

// A folder of its own that is gone at the end.
#pragma once

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "base/path.h"

namespace zv::test {

/// An empty folder that is removed with everything in it.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        do {
            path_ = std::filesystem::temp_directory_path() /
                    ("zv-test-" + std::to_string(std::random_device()()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code failure;
        std::filesystem::remove_all(path_, failure);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(const std::string& utf8) const { return path_ / PathOf(utf8); }
    /// Of what lies in it, in the order of the alphabet.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(Utf8Of(entry.path().filename()));
        }
        std::sort(names.begin(), names.end());
        return names;
    }

 private:
    std::filesystem::path path_;
};

}  // namespace zv::test

// A folder of its own that is gone at the end.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/path.h"

namespace zv::ring {

class TemporaryFolder {
 public:
    TemporaryFolder() {
        static std::atomic<int> count = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        path_ = std::filesystem::temp_directory_path() /
                ("zv-ring-" + std::to_string(now) + "-" + std::to_string(count++));
        std::filesystem::create_directory(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
    const std::filesystem::path& Path() const { return path_; }
    /// In the order of the alphabet.
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

}  // namespace zv::ring

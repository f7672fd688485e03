// What benchmarks that write need: a database of their own.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace zv::bench {

/// A file of its own that goes away again, with its log; several of one file differ by `name`.
class Copy {
 public:
    explicit Copy(const std::string& path, const std::string& name = "written")
        : path_(path + "." + name) {
        Remove();
        std::filesystem::copy_file(path, path_);
    }
    ~Copy() { Remove(); }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    const std::string& Path() const { return path_; }

 private:
    // A run that was broken off may have left one.
    void Remove() const {
        std::error_code ignored;
        for (const char* suffix : {"", "-wal", "-shm"}) {
            std::filesystem::remove(path_ + suffix, ignored);
        }
    }

    std::string path_;
};

}  // namespace zv::bench

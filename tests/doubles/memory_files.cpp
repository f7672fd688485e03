#include "doubles/memory_files.h"

#include <filesystem>
#include <utility>

#include "doubles/memory_file.h"

namespace zv::doubles {
namespace {

class NamedMemoryFile : public MemoryFile {
 public:
    NamedMemoryFile(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
    void Write(std::string_view piece) override {
        failing = files_.failing;
        MemoryFile::Write(piece);
    }
    void Commit() override {
        MemoryFile::Commit();
        files_.written[path_] = bytes;
    }

 private:
    MemoryFiles& files_;
    std::string path_;
};

}  // namespace

bool MemoryFiles::FileExists(const std::string& path) const {
    return std::filesystem::is_regular_file(path);
}

std::unique_ptr<platform::OutputFile> MemoryFiles::Create(const std::string& path) {
    return std::make_unique<NamedMemoryFile>(*this, path);
}

}  // namespace zv::doubles

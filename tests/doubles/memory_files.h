// Files that are written into memory and looked for on the disk.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/machine.h"

namespace zv::doubles {

class MemoryFiles : public platform::FileSystem {
 public:
    bool FileExists(const std::string& path) const override;
    std::unique_ptr<platform::OutputFile> Create(const std::string& path) override;
    std::string ApplicationFolder() const override { return folder; }

    std::string folder = "C:\\App";
    /// Committed files by their paths; none is on disk.
    std::map<std::string, std::string> written;
    std::string failing;  ///< not empty: nothing can be written, with this text
};

}  // namespace zv::doubles

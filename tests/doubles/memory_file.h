// A file that is written into memory.
#pragma once

#include <string>
#include <string_view>

#include "base/errors.h"
#include "platform/machine.h"

namespace zv::doubles {

class MemoryFile : public platform::OutputFile {
 public:
    void Write(std::string_view piece) override {
        if (!failing.empty()) throw RuntimeError(ErrorNumber::DiskFull, failing);
        bytes += piece;
        pieces++;
    }
    void Commit() override { committed = true; }

    std::string bytes;
    int pieces = 0;  ///< calls of Write
    bool committed = false;
    std::string failing;  ///< not empty: there is no room, with this text
};

}  // namespace zv::doubles

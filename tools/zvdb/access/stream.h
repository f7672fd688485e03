// Numbers, texts and values on their way from one process to another of the same program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

namespace zv::zvdb::access {

/// Throws std::runtime_error when the other side is gone.
class StreamWriter {
 public:
    explicit StreamWriter(int descriptor) : descriptor_(descriptor) {}

    void Put(std::uint64_t number) { PutBytes(&number, sizeof number); }
    void Put(std::string_view text);
    void Put(const store::Value& value);
    void Flush();

 private:
    static constexpr std::size_t kBuffer = 1 << 16;
    void PutBytes(const void* bytes, std::size_t size);

    int descriptor_;
    std::string buffer_;
};

/// Throws StreamReader::Broken when the other side ends in the middle or stays silent too long.
class StreamReader {
 public:
    struct Broken {
        bool silent = false;
    };

    /// `silence`: seconds to wait for the other side each time.
    StreamReader(int descriptor, int silence) : descriptor_(descriptor), silence_(silence) {}

    std::uint64_t Number();
    std::string Text();
    void Get(store::Value& value);

 private:
    const char* Take(std::size_t size);

    int descriptor_;
    int silence_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
};

}  // namespace zv::zvdb::access

// A library that reads damaged files may crash, hang or ask for all memory. It therefore works in a
// process of its own, and each of these becomes an error text.
#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <type_traits>

#include "zvdb/access/stream.h"

namespace zv::zvdb::access {

class IsolatedReader {
 public:
    /// Runs `work` in a child process; what it writes is read here. What it throws (of
    /// std::exception) becomes a SourceError with the same text. Throws SourceError when no
    /// process can be made.
    explicit IsolatedReader(const std::function<void(StreamWriter&)>& work);
    IsolatedReader(const IsolatedReader&) = delete;
    IsolatedReader& operator=(const IsolatedReader&) = delete;
    /// Ends the child.
    ~IsolatedReader();

    /// True before each message of the child's work, false when it has ended well. Throws
    /// SourceError when the child failed.
    bool Next();
    /// Reads one part of a message.
    std::uint64_t Number() {
        return Guarded([&] { return stream_->Number(); });
    }
    std::string Text() {
        return Guarded([&] { return stream_->Text(); });
    }
    void Get(store::Value& value) {
        Guarded([&] { stream_->Get(value); });
    }

    /// To be written before each message of the work.
    static constexpr std::uint64_t kMessage = 1;

 private:
    template <class Read>
    std::invoke_result_t<Read> Guarded(Read read) {
        try {
            return read();
        } catch (const StreamReader::Broken& broken) {
            Fail(broken.silent);
        }
    }
    [[noreturn]] void Fail(bool silent);
    void End();

    pid_t child_ = -1;
    int pipe_ = -1;
    std::optional<StreamReader> stream_;
};

}  // namespace zv::zvdb::access

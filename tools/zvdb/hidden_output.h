// What the tool prints, without the secrets of what it was given.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "zvdb/tool.h"

namespace zv::zvdb {

/// The logins and passwords of a command line, and what messages call its connections.
class GivenSecrets {
 public:
    /// "@FILE" stands for the first line of FILE, which is secret as a whole unless it names a
    /// server.
    explicit GivenSecrets(const std::vector<std::string>& arguments);
    bool IsEmpty() const { return texts_.empty() && secrets_.empty(); }
    std::string Hide(std::string text) const;

 private:
    /// A whole text and what stands for it.
    std::vector<std::pair<std::string, std::string>> texts_;
    std::vector<std::string> secrets_;
};

/// Hands on line by line, so that no secret is cut in two.
class HidingBuffer : public std::streambuf {
 public:
    HidingBuffer(std::ostream& target, const GivenSecrets& secrets)
        : target_(target), secrets_(secrets) {}
    ~HidingBuffer() override;

 protected:
    int_type overflow(int_type character) override;
    int sync() override;

 private:
    void HandOn();

    std::ostream& target_;
    const GivenSecrets& secrets_;
    std::string line_;
};

/// A console in front of another one; nothing is lost when this goes.
class HidingConsole {
 public:
    HidingConsole(const Console& console, const GivenSecrets& secrets)
        : outBuffer_(console.out, secrets),
          errBuffer_(console.err, secrets),
          terminal_(console.terminal) {}
    Console Get() { return {out_, err_, terminal_}; }

 private:
    HidingBuffer outBuffer_;
    HidingBuffer errBuffer_;
    std::ostream out_{&outBuffer_};
    std::ostream err_{&errBuffer_};
    bool terminal_;
};

}  // namespace zv::zvdb

// Ending a long run from outside without leaving anything half done.
#pragma once

#include <array>
#include <stdexcept>

namespace zv::zvdb {

class Interrupted : public std::runtime_error {
 public:
    Interrupted() : std::runtime_error("interrupted") {}
};

/// While it lives, signals that ask the program to end are only remembered, and a file that grows
/// over the user's limit is an error of the write instead of the end.
class InterruptionGuard {
 public:
    InterruptionGuard();
    ~InterruptionGuard();
    InterruptionGuard(const InterruptionGuard&) = delete;
    InterruptionGuard& operator=(const InterruptionGuard&) = delete;

 private:
    using Handler = void (*)(int);
    std::array<Handler, 4> before_{};
};

bool IsInterrupted();
/// Throws Interrupted.
void StopIfInterrupted();

}  // namespace zv::zvdb

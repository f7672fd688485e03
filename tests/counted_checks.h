// Checks of a program that closes with "N passed, N failed".
#pragma once

#include <cstdio>
#include <string>

namespace zv::tests {

inline int passed = 0;
inline int failed = 0;

/// Prints what holds or not, and what was found instead.
inline void Check(const std::string& what, bool good, const std::string& got = {}) {
    (good ? passed : failed)++;
    std::printf("%s %s%s\n", good ? "ok" : "FAIL", what.c_str(),
                good || got.empty() ? "" : (": " + got).c_str());
    std::fflush(stdout);
}
/// Prints the count; the program's exit code.
inline int Close() {
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}

}  // namespace zv::tests

// The frame of the programs of the benchmarks.
#pragma once

#include <algorithm>
#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "base/errors.h"

namespace zv::bench {

using Arguments = std::vector<std::string>;

/// Answers what `body` does, or 1 after telling the error that left it.
inline int Guard(const std::function<int()>& body) {
    try {
        return body();
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "error %d %s\n", static_cast<int>(error.Number()),
                     error.Text().c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}

/// Runs `body` with the arguments that `usage` names, "PROGRAM FIRST SECOND". The exit status is 1
/// after an error and 2 when there are more or fewer.
inline int RunProgram(const Arguments& arguments, const std::string& usage,
                      const std::function<void(const Arguments&)>& body) {
    const auto named = std::count(usage.begin(), usage.end(), ' ');
    if (static_cast<std::ptrdiff_t>(arguments.size()) != named) {
        std::fprintf(stderr, "%s\n", usage.c_str());
        return 2;
    }
    return Guard([&] {
        body(arguments);
        return 0;
    });
}

inline int RunProgram(int count, char** values, const std::string& usage,
                      const std::function<void(const Arguments&)>& body) {
    return RunProgram(Arguments(values + 1, values + count), usage, body);
}

}  // namespace zv::bench

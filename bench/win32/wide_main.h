// The frame of a Windows program of the benchmarks.
#pragma once

#include <windows.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "base/errors.h"
#include "base/text.h"

namespace zv::bench {

/// Runs `body` with the arguments as UTF-8; an error is told and gives status 1.
inline int WideMain(int count, wchar_t** values, int (*body)(const std::vector<std::string>&)) {
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(text::FromUtf16(reinterpret_cast<const char16_t*>(values[i])));
    }
    try {
        return body(arguments);
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "error %d %s\n", static_cast<int>(error.Number()),
                     error.Text().c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}

}  // namespace zv::bench

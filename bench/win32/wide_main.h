// The frame of a Windows program of the benchmarks.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "program.h"

namespace zv::bench {

/// Runs `body` with the arguments as UTF-8; an error is told and gives status 1.
inline int WideMain(int count, wchar_t** values, int (*body)(const std::vector<std::string>&)) {
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(text::FromUtf16(reinterpret_cast<const char16_t*>(values[i])));
    }
    return Guard([&] { return body(arguments); });
}

}  // namespace zv::bench

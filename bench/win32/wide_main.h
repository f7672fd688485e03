// The frame of a Windows program of the benchmarks.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "base/text.h"
#include "program.h"

namespace zv::bench {

/// RunProgram with the arguments as UTF-8.
inline int WideMain(int count, wchar_t** values, const std::string& usage,
                    const std::function<void(const Arguments&)>& body) {
    Arguments arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(text::FromUtf16(reinterpret_cast<const char16_t*>(values[i])));
    }
    return RunProgram(arguments, usage, body);
}

}  // namespace zv::bench

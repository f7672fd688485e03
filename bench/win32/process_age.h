// How long this process has been alive, and how much memory it has.
#pragma once

#include <windows.h>

#include <psapi.h>

#include <cstdint>

namespace zv::bench {

/// From the creation of the process by the system, the loading of its libraries included.
inline double ProcessAgeMilliseconds() {
    FILETIME created{};
    FILETIME exited{};
    FILETIME kernel{};
    FILETIME user{};
    FILETIME now{};
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    GetSystemTimeAsFileTime(&now);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    };
    return static_cast<double>(ticks(now) - ticks(created)) / 10000.0;
}

inline double WorkingSetBytes() {
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof memory;
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    return static_cast<double>(memory.WorkingSetSize);
}

}  // namespace zv::bench

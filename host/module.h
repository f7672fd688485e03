// The DLL itself: its handle and what keeps it loaded.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>

namespace zv::host {

/// Objects alive and locks held; while there are any the DLL must stay.
inline std::atomic<long> liveObjects{0};

/// The module that this code is part of, whether DLL or test program.
HMODULE ThisModule();
/// Full path of that module's file.
std::wstring ThisModulePath();

}  // namespace zv::host

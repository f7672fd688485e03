#include "com/module.h"

#include <atomic>

namespace zv::com::module {

namespace {

HINSTANCE g_handle = nullptr;
std::atomic<long> g_locks{0};

}  // namespace

void SetHandle(HINSTANCE handle) {
    g_handle = handle;
}

HINSTANCE Handle() {
    return g_handle;
}

std::wstring Path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(g_handle, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void Lock() {
    ++g_locks;
}

void Unlock() {
    --g_locks;
}

bool IsLocked() {
    return g_locks > 0;
}

}  // namespace zv::com::module

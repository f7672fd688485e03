#include "automation/module.h"

#include <atomic>

namespace zv::automation::module {

namespace {

std::atomic<long> g_locks{0};

}  // namespace

HINSTANCE Handle() {
    HMODULE handle = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&g_locks), &handle);
    return handle;
}

std::wstring Path() {
    return PathOf(Handle());
}

std::wstring PathOf(HMODULE file) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(file, path.data(), static_cast<DWORD>(path.size()));
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

long Locks() {
    return g_locks;
}

bool IsLocked() {
    return g_locks > 0;
}

}  // namespace zv::automation::module

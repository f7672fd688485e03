// What the heaps of this process hold.
#pragma once

#include <windows.h>

#include <algorithm>

namespace zv::test {

/// Bytes that are in use in all heaps of the process.
inline double LiveHeap() {
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
    double bytes = 0;
    for (DWORD i = 0; i < count; i++) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry)) {
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        }
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

}  // namespace zv::test

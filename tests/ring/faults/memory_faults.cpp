#include "memory_faults.h"

#include <sqlite3.h>

#include <stdexcept>

#include "failing_memory.h"

namespace zv::ring {
namespace {

sqlite3_mem_methods systemMemory{};

void* Allocate(int size) {
    return memory::FailsNow() ? nullptr : systemMemory.xMalloc(size);
}
void* Reallocate(void* piece, int size) {
    return memory::FailsNow() ? nullptr : systemMemory.xRealloc(piece, size);
}

void TakeOver() {
    sqlite3_shutdown();
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &systemMemory);
    sqlite3_mem_methods methods = systemMemory;
    methods.xMalloc = Allocate;
    methods.xRealloc = Reallocate;
    if (sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) != SQLITE_OK) {
        throw std::runtime_error("the engine is in use already");
    }
    // So that the engine asks for each piece.
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
}

}  // namespace

MemoryFaults::MemoryFaults() {
    if (systemMemory.xMalloc == nullptr) TakeOver();
}

FlowOptions MemoryFaults::Options() const {
    FlowOptions options;
    options.boxGuard = [] {
        const memory::Spared meanwhile;
        return std::shared_ptr<void>(std::make_shared<memory::Spared>());
    };
    return options;
}

void MemoryFaults::Arm(const FaultPoint& point) {
    if (point.forever) {
        memory::FailAllocationsFrom(point.number);
    } else {
        memory::FailAllocation(point.number);
    }
}

bool MemoryFaults::Disarm() {
    return memory::StopFailing();
}

}  // namespace zv::ring

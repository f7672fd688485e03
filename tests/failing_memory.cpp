#include "failing_memory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace zv::memory {
namespace {

std::atomic<bool> counting{false};
std::atomic<long> untilFailure{0};

void* Allocate(std::size_t size) {
    void* memory = FailsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

void FailAllocation(long number) {
    untilFailure = number;
    counting = true;
}

bool StopFailing() {
    counting = false;
    return untilFailure <= 0;
}

bool FailsNow() {
    return counting && --untilFailure == 0;
}

}  // namespace zv::memory

void* operator new(std::size_t size) {
    return zv::memory::Allocate(size);
}
void* operator new[](std::size_t size) {
    return zv::memory::Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

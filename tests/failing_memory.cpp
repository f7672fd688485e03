#include "failing_memory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace zv::memory {
namespace {

std::atomic<bool> counting{false};
std::atomic<bool> forever{false};
std::atomic<int> spared{0};
std::atomic<long> untilFailure{0};

void* Allocate(std::size_t size) {
    void* memory = FailsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

void FailAllocation(long number) {
    untilFailure = number;
    forever = false;
    counting = true;
}

void FailAllocationsFrom(long number) {
    FailAllocation(number);
    forever = true;
}

bool StopFailing() {
    counting = false;
    return untilFailure <= 0;
}

bool FailsNow() {
    if (!counting || spared > 0) return false;
    const long left = --untilFailure;
    return left == 0 || (left < 0 && forever);
}

Spared::Spared() {
    ++spared;
}
Spared::~Spared() {
    --spared;
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

// Takes the place of the process's memory, so that a test can see what becomes of a program that
// gets none. For test programs of their own.
#pragma once

namespace zv::memory {

/// The `number`-th allocation from here on fails, counted from 1; those after it succeed.
void FailAllocation(long number);
/// That one fails and all after it.
void FailAllocationsFrom(long number);
/// Allocations succeed again. Answers whether one had failed.
bool StopFailing();
/// Whether the allocation that asks is the one that fails; for allocators besides that of C++.
bool FailsNow();

/// While one lives, allocations succeed and are not counted: the test itself is at work.
class Spared {
 public:
    Spared();
    ~Spared();
    Spared(const Spared&) = delete;
    Spared& operator=(const Spared&) = delete;
};

}  // namespace zv::memory

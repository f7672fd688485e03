// What the tests of this folder share: chance, rounds, windows, the database and what is counted.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace zv::ring::com {

/// Chance that comes again with ZV_SEED (1 when left out).
class Random {
 public:
    Random();
    /// From 0 to below `count`.
    std::size_t Below(std::size_t count);
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    std::uint64_t Bits() { return engine_(); }
    template <class List>
    auto& Of(List& list) {
        return list[Below(std::size(list))];
    }

 private:
    std::mt19937_64 engine_;
};

/// So many rounds, and with ZV_LONG as many more as fit into a tenth of ZV_SECONDS (600).
class Rounds {
 public:
    explicit Rounds(int count);
    bool Next();

 private:
    using Clock = std::chrono::steady_clock;
    int left_;
    Clock::time_point end_;
};

bool IsLong();

/// What is done now: printed when the program breaks off.
void Now(const std::string& act);

/// The windows of this thread that belong to the control or are boxes of the system.
std::vector<HWND> ControlWindows();
/// Asks these windows to close until none is left; false when some stay.
bool CloseWindows();

/// While it lives, boxes and windows that the control brings up are closed from inside whichever
/// message loop runs.
class Closer {
 public:
    Closer();
    ~Closer();
    Closer(const Closer&) = delete;
    Closer& operator=(const Closer&) = delete;

 private:
    UINT_PTR timer_;
};

/// Directs the control to a small database of its own.
void SetDatabase(IDispatch& control);

/// What must not grow.
struct Census {
    int gdi = 0;      ///< objects of this process
    int windows = 0;  ///< of this process, those for messages only included
    int handles = 0;
    double heap = 0;  ///< bytes of live blocks
};
Census Take();

}  // namespace zv::ring::com

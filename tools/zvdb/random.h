// A small generator of pseudo-random numbers whose sequence is the same with every compiler and
// library, so that sample data can be made again from its seed. What is drawn twice is drawn in two
// statements: the order within one is the compiler's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zv::zvdb {

class Random {
 public:
    /// Different streams of one seed are independent: adding cards does not change the staff.
    Random(std::uint64_t seed, std::string_view stream) : state_(seed) {
        for (char c : stream) state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
        Next();
    }

    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    /// 0 .. bound-1.
    int Below(int bound) {
        return static_cast<int>((Next() >> 32) * static_cast<std::uint64_t>(bound) >> 32);
    }
    /// low .. high, both included.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool Chance(int percent) { return Below(100) < percent; }

    template <class T>
    const T& Pick(std::span<const T> items) {
        return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
    }
    template <class T, std::size_t N>
    const T& Pick(const T (&items)[N]) {
        return Pick(std::span<const T>(items));
    }
    template <class C>
    const typename C::value_type& Pick(const C& items) {
        return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
    }

 private:
    std::uint64_t state_;
};

}  // namespace zv::zvdb

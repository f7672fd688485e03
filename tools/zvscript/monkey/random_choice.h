// Random choices that a seed repeats on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>

namespace zv::script {

class RandomChoice {
 public:
    explicit RandomChoice(std::uint32_t seed) : engine_(seed) {}

    /// From 0 to `count` - 1; `count` must not be 0.
    std::size_t Below(std::size_t count) { return engine_() % count; }
    /// Once in `times`.
    bool Once(std::size_t times) { return Below(times) == 0; }
    template <typename List>
    const auto& Of(const List& list) {
        return *(std::begin(list) + static_cast<std::ptrdiff_t>(Below(std::size(list))));
    }

 private:
    std::mt19937 engine_;
};

}  // namespace zv::script

// Inputs made of others, where no fuzzer is at hand.
#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <string>

namespace zv::fuzz {

/// Bytes are changed, left out, repeated and put in; ends of other inputs take the place of ends.
/// The same seed makes the same ones.
class Changes {
 public:
    explicit Changes(std::uint32_t seed) : random_(seed) {}

    /// One of `inputs`, which are some, after a few changes; at most `longest` bytes.
    std::string Next(std::span<const std::string> inputs, std::size_t longest);

 private:
    std::size_t Below(std::size_t end) { return end == 0 ? 0 : random_() % end; }
    void ChangeOnce(std::string& input, std::span<const std::string> inputs);

    std::mt19937 random_;
};

}  // namespace zv::fuzz

// What the fuzz harness plays: readers of the product, each with what must hold whatever it reads.
#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zv::fuzz {

/// Something that must hold did not; the text says what.
class Finding : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

inline void Hold(bool holds, std::string_view what) {
    if (!holds) throw Finding(std::string(what));
}

struct Target {
    std::string_view name;    ///< also of its folder in corpus/ and its file in dictionaries/
    std::size_t longest = 0;  ///< bytes of an input
    /// Throws Finding. Any other exception is a finding, too.
    void (*play)(std::string_view input) = nullptr;
    /// Inputs that the product meets every day.
    std::vector<std::string> (*seeds)() = nullptr;
};

/// In the order of the alphabet.
std::span<const Target> Targets();
/// Throws std::runtime_error when there is none of that name.
const Target& TargetOf(std::string_view name);

/// Plays the input; answers what is wrong, nothing when all holds.
std::string FaultOf(const Target& target, std::string_view input);

}  // namespace zv::fuzz

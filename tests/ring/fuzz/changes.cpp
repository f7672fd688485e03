#include "changes.h"

#include <algorithm>
#include <string_view>

namespace zv::fuzz {
namespace {

constexpr std::size_t kMostChanges = 4;
constexpr std::size_t kMostBytes = 16;
// What readers make a difference for.
constexpr std::string_view kMarks("\0\1\x7F\x80\xFE\xFF'\"#;=,{}[]()\\\r\n\t -+@%*/", 30);

}  // namespace

void Changes::ChangeOnce(std::string& input, std::span<const std::string> inputs) {
    const std::size_t at = Below(input.size() + 1);
    const std::size_t size = std::min(1 + Below(kMostBytes), input.size() - at);
    switch (Below(6)) {
        case 0:
            if (at < input.size()) input[at] = static_cast<char>(random_());
            break;
        case 1:
            if (at < input.size()) input[at] = kMarks[Below(kMarks.size())];
            break;
        case 2:
            input.erase(at, size);
            break;
        case 3:
            input.insert(at, input.substr(at, size));
            break;
        case 4:
            input.insert(at, 1, kMarks[Below(kMarks.size())]);
            break;
        default: {
            const std::string& other = inputs[Below(inputs.size())];
            input.replace(at, std::string::npos, other.substr(Below(other.size() + 1)));
        }
    }
}

std::string Changes::Next(std::span<const std::string> inputs, std::size_t longest) {
    std::string input = inputs[Below(inputs.size())];
    for (std::size_t left = 1 + Below(kMostChanges); left > 0; left--) ChangeOnce(input, inputs);
    if (input.size() > longest) input.resize(longest);
    return input;
}

}  // namespace zv::fuzz

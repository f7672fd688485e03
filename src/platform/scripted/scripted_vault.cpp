#include <algorithm>
#include <numeric>

#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {
namespace {

// Nothing of a text is to be found in what is sealed.
std::string Turned(std::string_view bytes) {
    std::string turned(bytes);
    std::ranges::transform(turned, turned.begin(), [](char c) { return static_cast<char>(~c); });
    return turned;
}

std::string Head(std::string_view user, std::string_view turned) {
    const unsigned sum = std::accumulate(
        turned.begin(), turned.end(), 0u,
        [](unsigned before, char c) { return before * 31 + static_cast<unsigned char>(c); });
    return std::string(user) + '\n' + std::to_string(sum) + '\n';
}

}  // namespace

std::optional<std::string> ScriptedVault::Seal(std::string_view bytes) {
    if (missing) return std::nullopt;
    const std::string turned = Turned(bytes);
    return Head(user, turned) + turned;
}

std::optional<std::string> ScriptedVault::Reveal(std::string_view sealed) {
    const std::size_t name = sealed.find('\n');
    const std::size_t sum = name == std::string_view::npos ? name : sealed.find('\n', name + 1);
    if (missing || sum == std::string_view::npos) return std::nullopt;
    const std::string_view turned = sealed.substr(sum + 1);
    if (sealed.substr(0, sum + 1) != Head(user, turned)) return std::nullopt;
    return Turned(turned);
}

}  // namespace zv::platform::scripted

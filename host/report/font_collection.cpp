#include "report/font_collection.h"

#include <cstdint>
#include <optional>

namespace zv::report {
namespace {

constexpr std::size_t kHeader = 12;
constexpr std::size_t kEntry = 16;

std::optional<std::uint32_t> Number(std::string_view file, std::size_t at, std::size_t bytes) {
    if (at > file.size() || bytes > file.size() - at) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; i++) {
        value = value << 8 | static_cast<unsigned char>(file[at + i]);
    }
    return value;
}

// The table of names of the font whose directory stands at `at`.
std::string_view NamesOf(std::string_view file, std::size_t at) {
    const auto tables = Number(file, at + 4, 2);
    if (!tables) return {};
    for (std::size_t i = 0; i < *tables; i++) {
        const std::size_t entry = at + kHeader + i * kEntry;
        const auto offset = Number(file, entry + 8, 4);
        const auto length = Number(file, entry + 12, 4);
        if (!offset || !length) return {};
        if (file.substr(entry, 4) != "name") continue;
        if (*offset > file.size() || *length > file.size() - *offset) return {};
        return file.substr(*offset, *length);
    }
    return {};
}

}  // namespace

int FindInCollection(std::string_view file, std::string_view names) {
    if (file.substr(0, 4) != "ttcf") return 0;
    const auto fonts = Number(file, 8, 4);
    if (!fonts) return -1;
    for (std::uint32_t i = 0; i < *fonts; i++) {
        const auto directory = Number(file, kHeader + 4 * std::size_t{i}, 4);
        if (!directory) return -1;
        const std::string_view found = NamesOf(file, *directory);
        if (!found.empty() && found == names) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace zv::report

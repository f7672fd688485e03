// An input as a list of texts.
#pragma once

#include <string_view>
#include <vector>

namespace zv::fuzz {

/// No character of UTF-8 has this byte.
inline constexpr char kEndOfPiece = '\xFF';

inline std::vector<std::string_view> PiecesOf(std::string_view input, char end = kEndOfPiece) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t at = input.find(end);
        pieces.push_back(input.substr(0, at));
        if (at == std::string_view::npos) return pieces;
        input.remove_prefix(at + 1);
    }
}

}  // namespace zv::fuzz

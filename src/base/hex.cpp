#include "base/hex.h"

#include <charconv>

namespace zv::hex {

std::string FromBytes(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string digits;
    digits.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        digits += kDigits[byte >> 4];
        digits += kDigits[byte & 15];
    }
    return digits;
}

std::optional<std::string> ToBytes(std::string_view digits) {
    if (digits.size() % 2 != 0) return std::nullopt;
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const char* const begin = digits.data() + i;
        unsigned value = 0;
        const auto [end, error] = std::from_chars(begin, begin + 2, value, 16);
        if (error != std::errc() || end != begin + 2) return std::nullopt;
        bytes += static_cast<char>(value);
    }
    return bytes;
}

}  // namespace zv::hex

#include "base/text.h"

#include <algorithm>

namespace zv::text {
namespace {

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

std::string MapAscii(std::string_view text, char (*map)(char)) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), map);
    return result;
}

std::size_t UnitsOf(char32_t codePoint) {
    return codePoint >= 0x10000 ? 2 : 1;
}

// Byte position behind the first `units` UTF-16 units; stops before a pair that would be split.
std::size_t ByteOfUnit(std::string_view text, std::size_t units) {
    std::size_t position = 0;
    std::size_t seen = 0;
    while (position < text.size()) {
        std::size_t next = position;
        seen += UnitsOf(NextCodePoint(text, next));
        if (seen > units) break;
        position = next;
    }
    return position;
}

}  // namespace

std::string_view TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view Trim(std::string_view text) {
    text = TrimLeft(text);
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string ToLower(std::string_view text) {
    return MapAscii(text, LowerAscii);
}
std::string ToUpper(std::string_view text) {
    return MapAscii(text, UpperAscii);
}

bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return LowerAscii(x) == LowerAscii(y);
           });
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    return Join(Split(text, from), to);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, begin)) {
        parts.emplace_back(text.substr(begin, at - begin));
        begin = at + separator.size();
    }
    parts.emplace_back(text.substr(begin));
    return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < parts.size(); i++) {
        if (i > 0) result += separator;
        result += parts[i];
    }
    return result;
}

std::size_t Length(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t position = 0; position < text.size();) {
        units += UnitsOf(NextCodePoint(text, position));
    }
    return units;
}

std::string Left(std::string_view text, std::size_t units) {
    return std::string(text.substr(0, ByteOfUnit(text, units)));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t units) {
    return Left(text.substr(ByteOfUnit(text, start > 0 ? start - 1 : 0)), units);
}

std::string PadTo(std::string_view text, std::size_t units) {
    std::string result = Left(text, units);
    result.append(units - Length(result), ' ');
    return result;
}

char32_t NextCodePoint(std::string_view text, std::size_t& position) {
    constexpr char32_t kBroken = 0xFFFD;
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) return lead;
    const int trail = lead >= 0xF0 && lead < 0xF8 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (trail == 0 || lead >= 0xF8) return kBroken;
    char32_t codePoint = lead & (0x3Fu >> trail);
    for (int i = 0; i < trail; i++) {
        if (position >= text.size() ||
            (static_cast<unsigned char>(text[position]) & 0xC0) != 0x80) {
            return kBroken;
        }
        codePoint = codePoint << 6 | (static_cast<unsigned char>(text[position++]) & 0x3Fu);
    }
    // Longer than it need be, half of a pair, or beyond the last character: not UTF-8 either.
    constexpr char32_t kFirstOf[] = {0, 0x80, 0x800, 0x10000};
    constexpr char32_t kLast = 0x10FFFF;
    const bool half = codePoint >= 0xD800 && codePoint < 0xE000;
    if (codePoint < kFirstOf[trail] || half || codePoint > kLast) return kBroken;
    return codePoint;
}

void AppendCodePoint(std::string& text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
        return;
    }
    const int trail = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    const unsigned lead[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(lead[trail] | c >> (6 * trail));
    for (int i = trail - 1; i >= 0; i--) text += static_cast<char>(0x80 | (c >> (6 * i) & 0x3F));
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = NextCodePoint(text, position);
        if (c >= 0x10000) {
            result += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            result += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            result += static_cast<char16_t>(c);
        }
    }
    return result;
}

std::string FromUtf16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); i++) {
        char32_t c = text[i];
        const bool pair = c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() &&
                          text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (pair) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
        } else if (c >= 0xD800 && c < 0xE000) {
            c = 0xFFFD;
        }
        AppendCodePoint(result, c);
    }
    return result;
}

}  // namespace zv::text

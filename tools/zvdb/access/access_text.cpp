#include "zvdb/access/access_text.h"

#include "base/text.h"

namespace zv::zvdb::access {
namespace {

std::u16string Expand(Bytes stored) {
    std::u16string units;
    units.reserve(stored.Size());
    bool oneByte = true;
    for (std::size_t at = 2; at < stored.Size();) {
        if (stored.U8(at) == 0) {
            oneByte = !oneByte;
            ++at;
        } else if (oneByte) {
            units += static_cast<char16_t>(stored.U8(at++));
        } else {
            units += static_cast<char16_t>(stored.U16(at));
            at += 2;
        }
    }
    return units;
}

std::u16string Units(Bytes stored) {
    if (stored.Size() >= 2 && stored.U8(0) == 0xFF && stored.U8(1) == 0xFE) return Expand(stored);
    std::u16string units(stored.Size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        units[i] = static_cast<char16_t>(stored.U16(2 * i));
    }
    if (stored.Size() % 2 != 0) throw Damage("a text ends in the middle of a character");
    return units;
}

bool IsHigh(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLow(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

DecodedText DecodeText(Bytes stored) {
    std::u16string units = Units(stored);
    DecodedText decoded;
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (IsHigh(units[i]) && i + 1 < units.size() && IsLow(units[i + 1])) {
            ++i;
        } else if (IsHigh(units[i]) || IsLow(units[i])) {
            units[i] = u'\uFFFD';
            ++decoded.halves;
        }
    }
    decoded.utf8 = text::FromUtf16(units);
    return decoded;
}

}  // namespace zv::zvdb::access

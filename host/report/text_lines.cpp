#include "report/text_lines.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"

namespace zv::report {
namespace {

constexpr std::u32string_view kNeverFirst =
    U"!%),.:;>?]}¢°·’”†‡›℃∶、。〃〆〕〗〞﹐﹑﹒﹔﹕﹖﹗﹚﹜﹞！＂％＇），．：；？］｀｜｝～–—…‥"
    U"》〉」』】〙〛々〻ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶーゝゞヽヾ";
constexpr std::u32string_view kNeverLast = U"$([{£¥‘“‹〈《「『【〔〖〘〚〝﹙﹛﹝＄（［｛￡￥";

constexpr char32_t kBlank = U' ';

bool IsMark(char32_t c) {
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x20D0 && c <= 0x20FF) ||
           (c >= 0xFE20 && c <= 0xFE2F) || (c >= 0x3099 && c <= 0x309A);
}

// Characters that stand for themselves and not as letters of a word.
bool IsIdeographic(char32_t c) {
    return (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
           (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE6F) ||
           (c >= 0xFF00 && c <= 0xFFEF) || (c >= 0x1F000 && c <= 0x3FFFF);
}

bool IsAsciiLetter(char32_t c) {
    return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z');
}

bool IsLeftOut(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0xAD || (c >= 0x200B && c <= 0x200F) ||
           (c >= 0x202A && c <= 0x202E) || (c >= 0x2060 && c <= 0x206F) ||
           (c >= 0xFE00 && c <= 0xFE0F) || c == 0xFEFF || (c >= 0xE0000 && c <= 0xE0FFF);
}

bool IsLineBreak(char32_t c) {
    return c == U'\n' || c == U'\r' || c == 0x0B || c == 0x0C || c == 0x85 || c == 0x2028 ||
           c == 0x2029;
}

}  // namespace

std::string CleanText(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = text::NextCodePoint(text, position);
        if (c == U'\t') {
            clean += "    ";
        } else if (IsLineBreak(c)) {
            if (c == U'\r' && position < text.size() && text[position] == '\n') position++;
            clean += '\n';
        } else if (!IsLeftOut(c)) {
            text::AppendCodePoint(clean, c == 0xA0 ? kBlank : c);
        }
    }
    return clean;
}

bool MayBreakBetween(char32_t before, char32_t after) {
    if (after == kBlank || IsMark(after)) return false;
    if (before == kBlank) return true;
    if (kNeverFirst.find(after) != std::u32string_view::npos) return false;
    if (kNeverLast.find(before) != std::u32string_view::npos) return false;
    if (IsIdeographic(before) || IsIdeographic(after)) return true;
    return (before == U'-' || before == U'/') && IsAsciiLetter(after);
}

std::vector<Line> BreakLines(std::string_view text, double width, const Measure& measure) {
    std::vector<Line> lines;
    std::size_t start = 0;
    // Where the line may end, and the width of what stands behind that place.
    std::size_t breakAt = 0;
    double sinceBreak = 0;
    double used = 0;
    char32_t before = 0;
    const auto end = [&](std::size_t at) {
        std::size_t last = at;
        while (last > start && text[last - 1] == ' ') last--;
        lines.push_back({start, last - start});
        start = breakAt = at;
    };
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t at = position;
        const char32_t c = text::NextCodePoint(text, position);
        if (c == U'\n') {
            end(at);
            start = breakAt = position;
            used = sinceBreak = 0;
            before = 0;
            continue;
        }
        if (before != 0 && MayBreakBetween(before, c)) {
            breakAt = at;
            sinceBreak = 0;
        }
        const double advance = measure(c);
        // Blanks may stand beyond the edge; they are not printed there.
        if (c != kBlank && used + advance > width && at > start) {
            if (breakAt > start) {
                end(breakAt);
                used = sinceBreak;
            }
            if (used + advance > width && at > start) {
                end(at);
                used = sinceBreak = 0;
            }
        }
        used += advance;
        sinceBreak += advance;
        before = c;
    }
    end(text.size());
    return lines;
}

double WidestPart(std::string_view text, const Measure& measure) {
    double widest = 0;
    double part = 0;
    char32_t before = 0;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = text::NextCodePoint(text, position);
        if (c == U'\n' || c == kBlank || (before != 0 && MayBreakBetween(before, c))) part = 0;
        if (c != U'\n' && c != kBlank) part += measure(c);
        widest = std::max(widest, part);
        before = c == U'\n' ? 0 : c;
    }
    return widest;
}

}  // namespace zv::report

#include "resources/error_texts.h"

#include <cstddef>
#include <string_view>

#include "base/text.h"
#include "resources/language.h"
#include "resources/texts.h"

namespace zv::resources {
namespace {

std::string TextOf(ErrorNumber number, const Language& language) {
    if (const auto* found = FindText(language, number)) return std::string(found->text);
    return FillIn(FindText(language, kAnyError)->text,
                  std::to_string(static_cast<std::int32_t>(number)));
}

// Own and Other say nothing by themselves.
std::string TextOf(ErrorKind kind, const Language& language) {
    const auto* found = FindText(language, kind);
    return found ? std::string(found->text) : std::string();
}

/// A component that speaks the user's language needs no sentence in front of its own.
bool HoldsChinese(std::string_view words) {
    for (std::size_t at = 0; at < words.size();) {
        const char32_t c = text::NextCodePoint(words, at);
        if (c >= 0x4E00 && c <= 0x9FFF) return true;
    }
    return false;
}

}  // namespace

std::string DescribeError(const RuntimeError& error, std::int16_t language) {
    const std::string& words = error.Text();
    const bool ready =
        error.Kind() == ErrorKind::Own || (error.Kind() == ErrorKind::Other && HoldsChinese(words));
    if (ready && !words.empty()) return words;
    const Language& spoken = LanguageOf(SpokenLanguage(language));
    std::string text = TextOf(error.Kind(), spoken);
    if (text.empty()) text = TextOf(error.Number(), spoken);
    return words.empty() ? text : text + " (" + words + ")";
}

}  // namespace zv::resources

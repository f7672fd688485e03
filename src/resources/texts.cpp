#include "resources/texts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/number.h"
#include "resources/language.h"
#include "resources/languages/simplified.h"
#include "resources/languages/traditional.h"

namespace zv::resources {
namespace {

// By their numbers.
constexpr std::array kLanguages{&kSimplified, &kTraditional};

// Stored numbers of the catalogue are this far apart from one language to the next.
constexpr int kDistance = 10000;

template <class Id>
constexpr bool HasTheSameIds(Texts<Id> texts, Texts<Id> first) {
    return std::ranges::equal(texts, first, {}, &Text<Id>::id, &Text<Id>::id);
}

template <class Id>
constexpr bool SaysSomething(Texts<Id> texts) {
    return std::ranges::none_of(texts, &std::string_view::empty, &Text<Id>::text);
}

constexpr bool IsComplete(const Language& language) {
    return [&]<std::size_t... Part>(std::index_sequence<Part...>) {
        return ((HasTheSameIds(std::get<Part>(language), std::get<Part>(kSimplified)) &&
                 SaysSomething(std::get<Part>(language))) &&
                ...);
    }
    (std::make_index_sequence<std::tuple_size_v<Language>>());
}

static_assert(std::ranges::all_of(kLanguages, [](const Language* l) { return IsComplete(*l); }),
              "a language lacks a text that the first one has, or has one in another place");

bool IsKnown(int language) {
    return language >= 0 && language < static_cast<int>(kLanguages.size());
}

template <class Id>
std::string InOrderOf(Id id, std::int16_t language) {
    return std::string(
        std::get<Texts<Id>>(LanguageOf(language))[static_cast<std::size_t>(id)].text);
}

}  // namespace

const Language& LanguageOf(std::int16_t number) {
    number::Multiply16(kDistance, number);
    if (!IsKnown(number)) throw RuntimeError(ErrorNumber::ResourceNotFound);
    return *kLanguages[static_cast<std::size_t>(number)];
}

std::int16_t LanguageCount() {
    return static_cast<std::int16_t>(kLanguages.size());
}

std::int16_t SpokenLanguage(std::int32_t language) {
    return IsKnown(language) ? static_cast<std::int16_t>(language) : std::int16_t{0};
}

std::string_view CatalogueText(int storedId) {
    const int language = storedId / kDistance;
    if (storedId >= 0 && IsKnown(language)) {
        const auto id = static_cast<std::int16_t>(storedId % kDistance);
        const auto* found = FindText(LanguageOf(static_cast<std::int16_t>(language)), id);
        if (found) return found->text;
    }
    throw RuntimeError(ErrorNumber::ResourceNotFound);
}

std::string LoadText(std::int16_t id, std::int16_t language) {
    return std::string(CatalogueText(number::Add16(number::Multiply16(kDistance, language), id)));
}

std::string LoadText(DesignText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(AskText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(ItemText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(PlanText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(ReportText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(PrintText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(StatusText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(KeyText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(AlerterText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(RemindText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string LoadText(ChangeText id, std::int16_t language) {
    return InOrderOf(id, language);
}

std::string FillIn(std::string_view text, std::string_view first, std::string_view second) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text.substr(i, 3) == "{0}") {
            result += first;
            i += 2;
        } else if (text.substr(i, 3) == "{1}") {
            result += second;
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

}  // namespace zv::resources

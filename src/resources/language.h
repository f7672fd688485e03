// The shape of a language: a table of texts for each concern, found by its ids. A language lies in
// a file of its own under resources/languages/; texts.cpp lists them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <tuple>

#include "base/errors.h"
#include "resources/alerter_texts.h"
#include "resources/ask_texts.h"
#include "resources/change_texts.h"
#include "resources/design_texts.h"
#include "resources/item_texts.h"
#include "resources/key_texts.h"
#include "resources/plan_texts.h"
#include "resources/print_texts.h"
#include "resources/remind_texts.h"
#include "resources/report_texts.h"
#include "resources/status_texts.h"

namespace zv::resources {

template <class Id>
struct Text {
    Id id;
    std::string_view text;
};
template <class Id>
using Texts = std::span<const Text<Id>>;

/// The numbered catalogue, the texts of each enumeration, the errors by number and by kind.
using Language = std::tuple<Texts<std::int16_t>, Texts<DesignText>, Texts<AskText>, Texts<ItemText>,
                            Texts<PlanText>, Texts<ReportText>, Texts<PrintText>, Texts<StatusText>,
                            Texts<KeyText>, Texts<AlerterText>, Texts<RemindText>,
                            Texts<ChangeText>, Texts<ErrorNumber>, Texts<ErrorKind>>;

/// Stands among the errors for every number that has no text of its own.
inline constexpr ErrorNumber kAnyError{};

/// All texts of an enumeration, in its order: a text that is missing does not compile.
template <class Id, std::size_t N>
consteval std::array<Text<Id>, N> InOrder(const Text<Id> (&texts)[N]) {
    static_assert(N == static_cast<std::size_t>(Id::Last) + 1,
                  "every id of the enumeration has one text");
    for (std::size_t i = 0; i < N; i++) {
        if (texts[i].id != static_cast<Id>(i)) throw "not in the order of the enumeration";
    }
    return std::to_array(texts);
}

/// The language of a number. Throws error 326 (ResourceNotFound) for one that has no texts, error 6
/// for one whose catalogue has no numbers within 16 bits.
const Language& LanguageOf(std::int16_t number);

/// The text of an id in a language; null when the language has none.
template <class Id>
const Text<Id>* FindText(const Language& language, Id id) {
    for (const Text<Id>& text : std::get<Texts<Id>>(language)) {
        if (text.id == id) return &text;
    }
    return nullptr;
}

}  // namespace zv::resources

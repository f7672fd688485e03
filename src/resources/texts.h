// What the interface says, in the language that is asked for.
//
// Languages are known by number: 0 Simplified Chinese, 1 Traditional Chinese. A text in a language
// that has none is error 326 (ResourceNotFound), or 6 where 10000 times the number leaves 16 bits.
// What must be said whatever the language is (errors, the title of the boxes, papers) asks in the
// language that SpokenLanguage gives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

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

inline constexpr std::int16_t kSimplifiedChinese = 0;
inline constexpr std::int16_t kTraditionalChinese = 1;

/// How many languages there are: their numbers begin at 0 and have no gaps.
std::int16_t LanguageCount();
/// The language itself when it has texts, otherwise the first one.
std::int16_t SpokenLanguage(std::int32_t language);

/// The catalogue's entry of a stored number, which is id + 10000 × language. Throws error 326 for a
/// number without an entry.
std::string_view CatalogueText(int storedId);
/// The catalogue's entry id + 10000 × language, computed in 16 bits: error 6 on overflow.
std::string LoadText(std::int16_t id, std::int16_t language);

std::string LoadText(DesignText id, std::int16_t language);
std::string LoadText(AskText id, std::int16_t language);
std::string LoadText(ItemText id, std::int16_t language);
std::string LoadText(PlanText id, std::int16_t language);
std::string LoadText(ReportText id, std::int16_t language);
std::string LoadText(PrintText id, std::int16_t language);
std::string LoadText(StatusText id, std::int16_t language);
std::string LoadText(KeyText id, std::int16_t language);
std::string LoadText(AlerterText id, std::int16_t language);
std::string LoadText(RemindText id, std::int16_t language);
std::string LoadText(ChangeText id, std::int16_t language);

/// A text with `first` in the place of "{0}" and `second` in the place of "{1}".
std::string FillIn(std::string_view text, std::string_view first, std::string_view second = {});

template <class Id>
std::string LoadText(Id id, std::int16_t language, std::string_view first,
                     std::string_view second = {}) {
    return FillIn(LoadText(id, language), first, second);
}

}  // namespace zv::resources

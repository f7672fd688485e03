#include "store/rows/date_text.h"

#include <string>

#include "store/dialect/lexer.h"

namespace zv::store::rows {

bool TakeStoredDate(Value& value, std::string_view text, FieldUse use) {
    constexpr std::size_t kStoredLength = 19;  // "YYYY-MM-DD HH:MM:SS"
    const bool tryDate =
        use == FieldUse::Date || (use == FieldUse::Computed && text.size() == kStoredLength &&
                                  text[4] == '-' && text[10] == ' ');
    if (!tryDate) return false;
    const auto date = DateTime::Parse(text);
    if (date) value = *date;
    return date.has_value();
}

void TakeGivenDate(Value& value) {
    const std::string* text = value.TextIf();
    if (!text) return;
    const std::string stored = dialect::StoredDate(*text);
    if (const auto date = DateTime::Parse(stored.empty() ? *text : stored)) value = *date;
}

}  // namespace zv::store::rows

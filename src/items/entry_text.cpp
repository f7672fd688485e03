#include "items/entry_text.h"

#include "base/number.h"
#include "resources/text_ids.h"
#include "store/sql_text.h"

namespace zv::items {

std::int16_t WhyRefused(std::string_view text, bool numericOnly) {
    if (store::BreaksLiteral(text)) return text_id::kNoQuote;
    if (numericOnly && !text.empty() && !number::IsNumeric(text)) return text_id::kOnlyNumbers;
    return 0;
}

}  // namespace zv::items

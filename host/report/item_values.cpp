#include "report/item_values.h"

#include <cstddef>
#include <string>
#include <vector>

#include "base/text.h"
#include "items/names.h"

namespace zv::report {
namespace {

/// The name of a number among names in the order of their numbers; the number itself for any other.
std::string NameOf(const std::string& number, const std::vector<std::string>& names) {
    for (std::size_t i = 0; i < names.size(); i++) {
        if (number == std::to_string(i)) return names[i];
    }
    return number;
}

std::string DateText(const DateTime& date) {
    constexpr std::size_t kWithMinutes = 16;
    if (date == date.Date()) return date.IsoDate();
    return date.IsoDateTime().substr(0, kWithMinutes);
}

}  // namespace

std::string PrintedValue(std::string_view field, const store::Value& value, std::int16_t language) {
    if (const auto* date = std::get_if<DateTime>(&value.Data())) return DateText(*date);
    std::string text = value.ToText();
    if (text::EqualsIgnoreCase(field, "fType")) return NameOf(text, items::KindNames(language));
    if (text::EqualsIgnoreCase(field, "tDone")) return NameOf(text, items::StateNames(language));
    return text;
}

}  // namespace zv::report

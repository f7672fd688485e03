#include "doubles/text_bag.h"

#include "base/number.h"
#include "base/text.h"
#include "doubles/truth_text.h"

namespace zv::doubles {

void TextBag::Put(std::string_view key, std::string text) {
    for (auto& [name, value] : entries_) {
        if (text::EqualsIgnoreCase(name, key)) {
            value = std::move(text);
            return;
        }
    }
    entries_.emplace_back(std::string(key), std::move(text));
}

BagValue TextBag::Read(std::string_view key, const BagValue& fallback) {
    readKeys.emplace_back(key);
    for (const auto& [name, value] : entries_) {
        if (!text::EqualsIgnoreCase(name, key)) continue;
        if (std::holds_alternative<bool>(fallback)) return ToTruth(value);
        if (std::holds_alternative<std::int16_t>(fallback)) return number::ToInt16(value);
        return value;
    }
    return fallback;
}

void TextBag::Write(std::string_view key, const BagValue& value) {
    if (const auto* flag = std::get_if<bool>(&value)) {
        Put(key, Truth(*flag));
    } else if (const auto* integer = std::get_if<std::int16_t>(&value)) {
        Put(key, std::to_string(*integer));
    } else {
        Put(key, std::get<std::string>(value));
    }
}

std::vector<std::string> TextBag::Lines() const {
    std::vector<std::string> lines;
    for (const auto& [name, value] : entries_) lines.push_back(name + '=' + value);
    return lines;
}

}  // namespace zv::doubles

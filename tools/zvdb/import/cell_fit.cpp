#include "zvdb/import/cell_fit.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "base/text.h"

namespace zv::zvdb {
namespace {

/// A number without a fraction, however it is written.
std::optional<std::int64_t> Whole(const store::Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value.Data())) return *number;
    if (const auto* number = std::get_if<double>(&value.Data())) {
        if (std::trunc(*number) != *number || std::abs(*number) > 9e15) return std::nullopt;
        return static_cast<std::int64_t>(*number);
    }
    if (const std::string* text = value.TextIf()) {
        std::int64_t number = 0;
        const char* end = text->data() + text->size();
        const auto [stop, error] = std::from_chars(text->data(), end, number);
        if (error == std::errc() && stop == end) return number;
    }
    return std::nullopt;
}

bool IsUtf8(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            ++at;
            continue;
        }
        const std::size_t from = at;
        const bool broken = text::NextCodePoint(text, at) == U'\uFFFD';
        if (broken && text.compare(from, 3, "\xEF\xBF\xBD") != 0) return false;
    }
    return true;
}

}  // namespace

Misfit CellFit::Keep(const char* refused, const char* kept) const {
    return limits_.strict ? Misfit{Weight::Refusal, refused} : Misfit{Weight::Remark, kept};
}

std::optional<Misfit> CellFit::Fit(store::Value& value) const {
    if (value.IsNull()) return std::nullopt;
    switch (column_.kind) {
        case ColumnKind::Whole16:
        case ColumnKind::Whole32:
            return FitNumber(value);
        case ColumnKind::Text:
            return FitText(value);
        case ColumnKind::Date:
            return FitDate(value);
    }
    return std::nullopt;
}

std::optional<Misfit> CellFit::FitNumber(store::Value& value) const {
    const std::optional<std::int64_t> number = Whole(value);
    if (!number) return Misfit{Weight::Refusal, "values that are no whole numbers"};
    value = *number;
    const bool narrow = column_.kind == ColumnKind::Whole16;
    const std::int64_t low = narrow ? std::numeric_limits<std::int16_t>::min()
                                    : std::numeric_limits<std::int32_t>::min();
    const std::int64_t high = narrow ? std::numeric_limits<std::int16_t>::max()
                                     : std::numeric_limits<std::int32_t>::max();
    if (*number >= low && *number <= high) return std::nullopt;
    return Keep("numbers too large for the column", "numbers too large for the column, kept");
}

std::optional<Misfit> CellFit::FitText(store::Value& value) const {
    if (value.TextIf() == nullptr) value = store::Value(value.ToText());
    const std::string& text = *value.TextIf();
    if (column_.size > 0 && text.size() > column_.size && text::Length(text) > column_.size) {
        return Keep("texts longer than the column", "texts longer than the column, kept whole");
    }
    if (text.find('\0') != std::string::npos) {
        return Keep("texts with a zero character", "texts with a zero character, kept");
    }
    if (limits_.strict && !IsUtf8(text)) {
        return Misfit{Weight::Refusal, "texts with broken characters"};
    }
    return std::nullopt;
}

std::optional<Misfit> CellFit::FitDate(store::Value& value) const {
    std::optional<DateTime> date;
    if (const auto* known = std::get_if<DateTime>(&value.Data())) date = *known;
    if (const std::string* text = value.TextIf()) date = DateTime::Parse(*text);
    if (!date) return Misfit{Weight::Refusal, "values that are no dates"};
    if (*date < limits_.firstDate || *date > limits_.lastDate) {
        return Misfit{Weight::Refusal, "dates that the target cannot hold"};
    }
    if (limits_.datesAreTexts) {
        value = store::Value(date->IsoDateTime());
    } else {
        value = *date;
    }
    return std::nullopt;
}

}  // namespace zv::zvdb

#include "report/row_reader.h"

#include <limits>
#include <utility>

#include "base/text.h"
#include "items/fields.h"
#include "items/urgency.h"
#include "report/item_values.h"

namespace zv::report {
namespace {

std::optional<std::size_t> Find(const std::vector<std::string>& fields, std::size_t field) {
    for (std::size_t i = 0; i < fields.size(); i++) {
        if (text::EqualsIgnoreCase(fields[i], items::kFields[field].column)) return i;
    }
    return std::nullopt;
}

// A client's column of that name may hold anything.
std::optional<items::ItemState> StateOf(const store::Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value.Data());
    if (!number || *number < 0 || *number > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return items::StateOf(static_cast<std::int32_t>(*number));
}

}  // namespace

RowReader::RowReader(Table& table, std::vector<std::string> fields, DateTime today,
                     std::int16_t language)
    : table_(table),
      fields_(std::move(fields)),
      today_(today),
      language_(language),
      state_(Find(fields_, items::field::kState)),
      dueTime_(Find(fields_, items::field::kTime)) {
    table_.signColumn = state_.value_or(0);
}

void RowReader::Add(const std::vector<store::Value>& values) {
    std::vector<std::string>& cells = table_.rows.emplace_back();
    for (std::size_t i = 0; i < values.size(); i++) {
        cells.push_back(PrintedValue(fields_[i], values[i], language_));
    }
    if (state_ && dueTime_) table_.signs.push_back(SignOf(values));
}

std::string RowReader::SignOf(const std::vector<store::Value>& values) const {
    const auto state = StateOf(values[*state_]);
    const auto* day = std::get_if<DateTime>(&values[*dueTime_].Data());
    // A later day says itself what it is.
    if (!state || !day || day->Date() > today_.Date()) return {};
    return items::DueOf(*day, *state, today_, language_);
}

}  // namespace zv::report

// The conditions that the query builder collects, as SQL text and as the user reads them.
#pragma once

#include <string>
#include <vector>

#include "base/date_time.h"
#include "items/filter.h"
#include "items/list_fields.h"

namespace zv::items {

enum class Join { And, Or };

enum class Comparison {
    Contains,
    BeginsWith,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Empty,
    NotEmpty,
};

struct Condition {
    Join join = Join::And;  ///< to what stands before it
    ListField field;
    Comparison comparison = Comparison::Contains;
    std::string value;  ///< of a text or number field, without single quotes
    DateTime date;      ///< of a date field
    int row = 0;        ///< of a kind or a state: its number
};

/// The comparisons that a kind of field can be asked for, the usual one first.
const std::vector<Comparison>& ComparisonsOf(FieldKind kind);
/// False for those that look only at whether the field is empty.
bool TakesValue(Comparison comparison);

/// The conditions as the text of a WHERE clause over "tTaskList a", "1=1" for none. They combine
/// from the first to the last, and the whole binds like one condition. `dateLiteral` writes a date
/// in the database's dialect.
std::string WhereText(const std::vector<Condition>& conditions, const DateLiteral& dateLiteral);

}  // namespace zv::items

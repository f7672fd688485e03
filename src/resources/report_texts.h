// Captions of the query builder and the list layout that the message catalogue does not hold.
#pragma once

#include <cstdint>
#include <string>

namespace zv::resources {

enum class ReportText {
    SearchWindow,
    Field,
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
    On,
    NotOn,
    Before,
    OnOrBefore,
    After,
    OnOrAfter,
    And,
    Or,
    ButtonAnd,
    ButtonOr,
    Comparison,
    ComparedValue,
    Conditions,
    ConditionsHint,
    ButtonAddCondition,
    ButtonRemove,
    ButtonClear,
    ListLayout,
    Available,
    Chosen,
    ButtonTake,
    ButtonDrop,
    ButtonUp,
    ButtonDown,
    ButtonUsual,
    NoColumns,
};

/// The caption in the control's language: 1 Traditional, any other Simplified.
std::string GetReportText(ReportText id, std::int16_t language);

}  // namespace zv::resources

// Captions of the query builder and the list layout that the message catalogue does not hold.
#pragma once

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
    Last = NoColumns,
};

}  // namespace zv::resources

// Conditions as the user reads them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "items/conditions.h"
#include "resources/report_texts.h"

namespace zv::windows {

/// What a comparison is called for that kind of field.
resources::ReportText NameOf(items::Comparison comparison, items::FieldKind kind);

/// One condition, joined to what stands before it unless it is the first. Throws like
/// resources::LoadText.
std::string DescribeCondition(const items::Condition& condition, bool first, std::int16_t language);
/// All of them in one line; for none the words that everything is asked for.
std::string DescribeConditions(const std::vector<items::Condition>& conditions,
                               std::int16_t language);

}  // namespace zv::windows

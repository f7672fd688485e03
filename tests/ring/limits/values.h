// The boundary values that every field meets, in one table.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/date_time.h"

namespace zv::ring {

struct TextValue {
    std::string name;
    /// As a window or a host gives it, in UTF-16: a lone surrogate is possible there.
    std::u16string units;
    /// No keyboard and no clipboard gives a character 0.
    bool canBeTyped = true;

    /// As it is inside the system.
    std::string Text() const;
};

/// Texts for a field that takes that many UTF-16 units, 0: any number.
std::vector<TextValue> TextValues(std::size_t limit);

/// What is typed where a number belongs.
const std::vector<std::string>& NumberTexts();
/// Whole numbers at the limits of 16, 32 and 64 bits.
const std::vector<std::int64_t>& WholeNumbers();

/// Days and moments at the ends of calendars.
const std::vector<DateTime>& Dates();
/// What is no date, or none that every database takes, as a file may hold it.
const std::vector<std::string>& DateTexts();

}  // namespace zv::ring

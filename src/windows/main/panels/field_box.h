// A control in which the user sees or edits a field of an item, and what describes it.
#pragma once

#include <cstddef>
#include <vector>

#include "forms/control.h"
#include "forms/label.h"

namespace zv::windows {

struct FieldBox {
    std::size_t field;  ///< position in items::kFields
    forms::Label* label;
    forms::Control* box;
};

}  // namespace zv::windows

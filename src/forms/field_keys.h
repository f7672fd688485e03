// Keys that lead from one entry field to the next.
#pragma once

#include "forms/form.h"

namespace zv::forms {

/// Enter works like Tab. A key that moved the focus is used up.
void MoveOnEnter(Form& form, KeyEvent& event);
/// Enter and Down work like Tab, Up like Shift+Tab.
void MoveOnEnterAndArrows(Form& form, KeyEvent& event);

}  // namespace zv::forms

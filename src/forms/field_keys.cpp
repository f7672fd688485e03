#include "forms/field_keys.h"

namespace zv::forms {
namespace {

void Move(Form& form, KeyEvent& event, int direction) {
    event.code = 0;
    form.MoveFocus(direction);
}

}  // namespace

void MoveOnEnter(Form& form, KeyEvent& event) {
    if (event.code == key::kEnter) Move(form, event, +1);
}

void MoveOnEnterAndArrows(Form& form, KeyEvent& event) {
    if (event.code == key::kEnter || event.code == key::kDown) {
        Move(form, event, +1);
    } else if (event.code == key::kUp) {
        Move(form, event, -1);
    }
}

}  // namespace zv::forms

#include "stand.h"

namespace zv::contract {

void Contract::Arrange(forms::Form& form) {
    int top = 8;
    for (forms::Control* control : form.Controls()) {
        if (control->Kind() == forms::ControlKind::Timer) continue;
        const bool large = control->Kind() == forms::ControlKind::TreeView ||
                           control->Kind() == forms::ControlKind::TabPanel ||
                           control->Kind() == forms::ControlKind::Frame ||
                           control->Kind() == forms::ControlKind::Panel ||
                           control->Kind() == forms::ControlKind::Grid;
        const int height = large ? 160 : 26;
        if (control->Parent()) {
            control->Move({8, 24, 200, 26});
        } else {
            control->Move({8, top, 320, height});
            top += height + 4;
        }
    }
    form.SetClientSize({340, top + 8});
}

std::string Contract::Read(forms::Control& control, const std::string& property,
                           const std::vector<int>& arguments) {
    const auto value = driver().Read(control, property, arguments);
    if (!value) ADD_FAILURE() << control.Name() << " has no property " << property;
    return value.value_or("");
}

}  // namespace zv::contract

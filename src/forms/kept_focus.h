// Disabling a control that may have the focus.
#pragma once

#include "forms/control.h"

namespace zv::forms {

/// As Control::SetEnabled. A control that has the focus and is disabled gives it to `next`, where
/// the user goes on working, and not to whatever stands behind it in the tab order.
inline void SetEnabledOrGoTo(Control& control, bool enabled, Control& next) {
    if (!enabled && control.HasFocus()) next.SetFocus();
    control.SetEnabled(enabled);
}

}  // namespace zv::forms

// The control's properties as a host sets them and as scenarios look at them.
#pragma once

#include <string>
#include <string_view>

#include "control/zv_task.h"

namespace zv::script {

bool IsSettable(std::string_view name);
/// A readable property or, for tests, any value of the control state.
bool IsReadable(std::string_view name);

/// Sets a property as automation does, converting the text: throws RuntimeError 13 for a text that
/// is not of the property's type, 6 for a number out of range.
void SetProperty(ZvTask& control, std::string_view name, const std::string& text);

std::string ReadProperty(ZvTask& control, std::string_view name);

}  // namespace zv::script

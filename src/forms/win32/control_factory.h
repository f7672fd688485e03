// Which native control stands for which control.
#pragma once

#include <memory>

#include "forms/control.h"
#include "forms/win32/form_window.h"
#include "forms/win32/native_control.h"

namespace zv::forms::win32 {

/// Attaches a peer to the control. Null for a control without a native window.
std::shared_ptr<NativeControl> MakeNative(FormWindow& window, Control& control);

}  // namespace zv::forms::win32

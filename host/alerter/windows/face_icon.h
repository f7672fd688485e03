// The picture of the icon beside the clock.
#pragma once

#include <windows.h>

#include <string>

#include "alerter/tray.h"

namespace zv::alerter {

/// A square of that many pixels; the caller destroys it. Null where the system has no memory left.
HICON MakeFaceIcon(Mood mood, const std::wstring& sign, int size);

}  // namespace zv::alerter

// The picture of the icon beside the clock.
#pragma once

#include <windows.h>

#include <string>

#include "alerter/tray.h"

namespace zv::alerter {

/// What stands in the picture: a number up to 99, "+" beyond, and nothing while nothing is due.
std::wstring FaceText(Mood mood, int due);
/// A square of that many pixels; the caller destroys it. Null where the system has no memory left.
HICON MakeFaceIcon(Mood mood, int due, int size);

}  // namespace zv::alerter

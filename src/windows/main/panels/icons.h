// The pictures of the task tree.
#pragma once

#include "forms/icon.h"

namespace zv::windows {

/// imgSmall: "task", "diary", "guest" and "event" with "1" group, "2" not done, "3" in hand and
/// "4" done; and "date". The states differ by shape, not only by colour.
const forms::ImageList& TreeImages();

}  // namespace zv::windows

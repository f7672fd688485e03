// What the control writes to the registry.
#pragma once

#include "automation/registration.h"

namespace zv::com {

/// The class with its names, the type library and the marshalling of its interfaces. A library of
/// the other width keeps its own entries when this one goes.
automation::Registration ControlRegistration();

}  // namespace zv::com

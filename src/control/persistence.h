// How the control's state survives in the host's property bag.
#pragma once

#include "control/property_bag.h"
#include "session/control_state.h"

namespace zv {

/// Number of flags in a rights string.
inline constexpr std::size_t kRightsLength = 350;

/// Sets what a new control starts with; properties that initialising does not name keep their
/// values.
void InitState(ControlState& state, const std::string& applicationFolder);

/// Reads every persisted property but UserName. A value that cannot be brought into its type
/// throws error 13 or 6 and leaves the state as it was.
void ReadState(ControlState& state, PropertyBag& bag);

/// Writes the properties that differ from their defaults, in a fixed order.
void WriteState(const ControlState& state, PropertyBag& bag);

}  // namespace zv

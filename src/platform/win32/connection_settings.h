// What a component of the host suite is given to open the store by itself.
#pragma once

#include "automation/late_bound.h"
#include "store/connection_opener.h"

namespace zv::platform::win32 {

/// Throws the component's own error.
void PutConnection(automation::LateBound& component, const store::ConnectionSettings& connection);

}  // namespace zv::platform::win32

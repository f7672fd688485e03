// What servers and drivers say when a connection has gone.
#pragma once

#include "base/errors.h"

namespace zv::store {

/// The error belongs to the connection and not to the statement: nothing can be sent over it any
/// more. A statement that ran into its time limit says nothing of the kind.
bool MeansLoss(const ServerCode& code);

}  // namespace zv::store

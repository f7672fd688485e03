// The engine that a file which is offered as a database belongs to.
#pragma once

#include <string>

#include "store/engines/engines.h"

namespace zv::host {

/// Recognised by the file's first bytes. Never creates or changes it. Throws RuntimeError with the
/// reason and the path when it is missing, no file, empty, not readable or none of the kinds.
const store::engines::Engine& RecogniseDatabase(const std::string& path);

}  // namespace zv::host

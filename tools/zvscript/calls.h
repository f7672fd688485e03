// The shared operations that a scenario can call by their names.
#pragma once

#include "command.h"

namespace zv::script {

/// NAME ARG...: throws ScriptError for an unknown operation or a wrong number of arguments.
Action CompileCall(Words words);

}  // namespace zv::script

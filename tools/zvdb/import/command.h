// The command "import".
#pragma once

#include <string>

#include "zvdb/tool.h"

namespace zv::zvdb {

struct ImportCommand {
    std::string from;
    std::string to;
    bool dryRun = false;
    bool replace = false;
    bool quiet = false;
};

/// Answers the exit status: 0 everything is in the target and equal, 1 the same with remarks in the
/// report, 2 nothing was imported and the target is as it was.
int RunImport(const ImportCommand& command, const Console& console);

}  // namespace zv::zvdb

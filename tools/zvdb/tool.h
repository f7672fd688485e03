// The commands of zvdb, apart from the process around them.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "base/date_time.h"

namespace zv::zvdb {

struct Console {
    std::ostream& out;
    std::ostream& err;
    bool terminal = false;  ///< `err` is a terminal, where a line may be drawn over
};

/// Runs one command; `arguments` without the program's name. Answers the exit status: 0 all is
/// well, 1 a check found something wrong or an import has remarks, 2 wrong arguments, a file that
/// cannot be made or read, or an upgrade or a copy that was not made, 3 an import, a backup or a
/// restore that is whole, of rows that a check finds fault with.
int RunTool(const std::vector<std::string>& arguments, DateTime today, const Console& console);

}  // namespace zv::zvdb

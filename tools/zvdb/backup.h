// Copies of a file that programs have open, and the way back.
//
// A file alone is not its database: what was committed last may be in the log beside it. The engine
// therefore copies, as one moment shows it, while others go on reading and writing.
#pragma once

#include <string>
#include <vector>

#include "zvdb/check.h"
#include "zvdb/progress.h"

namespace zv::zvdb {

struct Copied {
    Report report;                   ///< of the copy
    std::vector<std::string> aside;  ///< what was set aside, a sentence each
};

/// Makes `to`, a whole file without a log, with the rights of `path`. A file that is there is
/// replaced when `force`. The copy is checked before it takes its name and under it. Throws
/// FileError, EngineError, ShareError, RuntimeError, Interrupted or
/// std::filesystem::filesystem_error; what was there stays then.
Copied BackUp(const std::string& path, const std::string& to, bool force, Progress& progress);

/// Puts `backup` into `path`. It is checked first: a damaged one, or one that lacks tables, changes
/// nothing. A file that is there keeps its rights and its journal mode and needs `replace`;
/// programs that have it open see all of its old contents, then all of the new. Throws like BackUp.
Copied Restore(const std::string& backup, const std::string& path, bool replace,
               Progress& progress);

}  // namespace zv::zvdb

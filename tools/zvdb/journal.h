// The journal mode of a file: looking at it and changing it.
#pragma once

#include <string>

namespace zv::zvdb {

enum class JournalKind {
    WriteAhead,  ///< readers and a writer at once, all on one machine
    RollBack,    ///< one or the other, from any machine
};

/// Throws FileError.
JournalKind JournalKindOf(const std::string& path);

/// Nobody else may have the file open. Throws FileError or EngineError; the file is in the mode
/// that it was in then. A file on a network share is not put into write-ahead mode, a damaged one
/// is left alone.
void SetJournalKind(const std::string& path, JournalKind kind);

}  // namespace zv::zvdb

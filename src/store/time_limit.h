// How long a statement may take, whatever engine runs it.
#pragma once

#include <chrono>

#include "base/errors.h"

namespace zv::store {

/// A user waits for a statement; one that takes longer is ended.
inline constexpr std::chrono::milliseconds kStatementLimit{30'000};

/// "30 s", rounded.
std::string SecondsText(std::chrono::milliseconds limit);

/// The error of a statement that was ended: DatabaseFailure, SQLSTATE HYT00. `who` begins the
/// sentence, `source` is the engine.
RuntimeError StatementTookTooLong(const std::string& who, std::chrono::milliseconds limit,
                                  const std::string& source);

}  // namespace zv::store

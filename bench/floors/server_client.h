// The server's own command-line client, as the floor of what goes over the wire.
#pragma once

#include <string>

namespace zv::bench {

/// Runs psql with the connection that its own environment variables name (PGHOST, PGPORT, …).
/// Milliseconds that it tells for the statement: until the last row has arrived, without showing
/// any. Throws std::runtime_error when psql fails.
double ClientTime(const std::string& statement);
/// The same for a file of statements, each its own commit: the time of them all.
double ClientTimeOfFile(const std::string& path);

}  // namespace zv::bench

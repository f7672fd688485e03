// Opening the shared connection is the business of a component outside the system; this is the
// port behind which it stands.
#pragma once

#include <memory>
#include <string>

#include "store/connection.h"

namespace zv::store {

struct ConnectionSettings {
    int kind = 0;  ///< 0 Access or embedded file, 1 or more server
    std::string dataPath;
    std::string password;
    std::string login;
    std::string database;
};

class ConnectionOpener {
 public:
    virtual ~ConnectionOpener() = default;
    /// The opened connection, never null. Throws RuntimeError with the reason when it cannot be
    /// opened; never creates a file.
    virtual std::unique_ptr<Connection> Open(const ConnectionSettings& settings) = 0;
};

}  // namespace zv::store

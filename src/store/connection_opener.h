// Opening the shared connection is the business of a component outside the system; this is the
// port behind which it stands.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "store/connection.h"
#include "store/connection_text.h"

namespace zv::store {

struct ConnectionSettings {
    int kind = 0;  ///< 0 Access or embedded file, 1 or more server
    ConnectionText dataPath;
    Secret password;
    Secret login;
    ConnectionText database;

    /// What no text may show of these settings.
    std::vector<std::string> Secrets() const;
    /// What messages call the database of these settings: its file or its server.
    std::string ForMessage() const;
    /// A text that came back from opening or using the database, without what is secret in these
    /// settings.
    std::string WithoutSecrets(const std::string& text) const;
    friend bool operator==(const ConnectionSettings&, const ConnectionSettings&) = default;
};

class ConnectionOpener {
 public:
    virtual ~ConnectionOpener() = default;
    /// The opened connection, never null. Throws RuntimeError with the reason when it cannot be
    /// opened; never creates a file.
    virtual std::unique_ptr<Connection> Open(const ConnectionSettings& settings) = 0;
};

}  // namespace zv::store

// The engine that holds the databases of scenarios. A scenario names a database by a path; where it
// really is, is the engine's business.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "store/connection.h"

namespace zv::script {

class ScriptEngine {
 public:
    virtual ~ScriptEngine() = default;
    /// Makes an empty database with the full schema. Both throw RuntimeError; `path` is absolute,
    /// or empty when the scenario named none.
    virtual void Create(const std::string& path) = 0;
    virtual std::unique_ptr<store::Connection> Open(const std::string& path) = 0;
    /// Adds the tables that a database may do without.
    virtual void AddSideTables(const std::string& path) = 0;
    /// As Open, for the host application, which sees dates as they are stored.
    virtual std::unique_ptr<store::Connection> OpenForHost(const std::string& path) {
        return Open(path);
    }
    /// Removes what was made outside the scenario's folder. Throws RuntimeError.
    virtual void Clear() {}
};

/// "embedded"; "sqlite-odbc", the same files through the ODBC driver for SQLite; or "postgresql", a
/// server whose ODBC connection string the environment variable ZV_TEST_POSTGRESQL holds: each
/// database of a scenario is a schema there. Throws ScriptError for another name, RuntimeError when
/// a driver or a server is missing.
std::unique_ptr<ScriptEngine> MakeScriptEngine(const std::string& name);

}  // namespace zv::script

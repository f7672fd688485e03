// A server at one end of an import: its kind, and how its statements are written.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/connection.h"
#include "store/engines/engines.h"

namespace zv::zvdb {

class ServerLink {
 public:
    /// `name` is a data path that the control takes for a server. Throws RuntimeError.
    explicit ServerLink(const std::string& name);

    const store::engines::Engine& Engine() const { return *engine_; }
    /// How many rows are moved into and out of it.
    const store::engines::Bulk& Bulk() const { return *engine_->bulk; }
    std::string Product() const { return std::string(engine_->codes->name); }
    /// The same for two connections to the same tables, whatever they were named by.
    std::string Identity();

    void Run(const std::string& sql) { connection_->Execute(sql); }
    std::unique_ptr<store::Recordset> Select(const std::string& sql);
    /// First field of the first row.
    store::Value Ask(const std::string& sql);

    /// A name as it is stored, in quotes. The system's own names are stored in lower case by
    /// servers that fold them.
    std::string Quoted(std::string_view name) const { return Bulk().Quoted(name); }
    /// A name of the system in quotes, as the server stores it.
    std::string OwnName(std::string_view name) const { return Quoted(StoredName(name)); }
    std::string StoredName(std::string_view name) const { return engine_->facts->StoredName(name); }
    /// "'text'", without regard to what the server makes of backslashes.
    void AppendLiteral(std::string& sql, const store::Value& value) const;

 private:
    std::unique_ptr<store::Connection> connection_;
    const store::engines::Engine* engine_ = nullptr;
};

/// Columns of a table as the server describes them.
struct ServerColumn {
    std::string name;
    std::size_t size = 0;  ///< of a text, 0 is any length
};
struct ServerTable {
    std::string name;
    std::vector<ServerColumn> columns;
};

/// The tables that are seen without naming a schema.
std::vector<ServerTable> ReadServerTables(ServerLink& link);

}  // namespace zv::zvdb

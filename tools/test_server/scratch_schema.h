// A place of its own on a PostgreSQL server for a test or a scenario.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "store/connection.h"
#include "store/odbc/odbc_connection.h"

namespace zv::test_server {

/// The server's ODBC connection string, from the environment variable ZV_TEST_POSTGRESQL; empty
/// when that names none.
std::string Address();

/// The connection string for a schema of the server at `address`.
std::string AddressWithin(const std::string& address, const std::string& schema);

/// How long a test waits for a server. Time limits have tests of their own; elsewhere a machine
/// that has much else to do is no reason to give a connection or a statement up.
inline constexpr std::chrono::minutes kPatience{10};

/// The same with time limits of kPatience.
store::odbc::OdbcOptions Patient(store::odbc::OdbcOptions options);

/// Connects with statements in the server's own language. Throws RuntimeError.
std::unique_ptr<store::Connection> ConnectRaw(const std::string& address);

/// A schema with a name that nobody else has, on a server that has all that the tables need. It
/// goes away with the object at the latest. Operations throw RuntimeError.
class ScratchSchema {
 public:
    /// Makes an empty schema on the server at `server`. Its name begins with `purpose`.
    ScratchSchema(std::string server, std::string_view purpose);
    /// A schema that cannot be removed is reported on the error stream; Drop answers it to the
    /// caller.
    ~ScratchSchema();
    ScratchSchema(const ScratchSchema&) = delete;
    ScratchSchema& operator=(const ScratchSchema&) = delete;

    const std::string& Name() const { return name_; }
    /// The connection string for it.
    std::string Address() const { return AddressWithin(server_, name_); }
    /// Makes the system's tables, empty.
    void CreateTables();
    /// Removes the schema with all that is in it.
    void Drop();

 private:
    std::string server_;
    std::string name_;
    bool dropped_ = false;
};

}  // namespace zv::test_server

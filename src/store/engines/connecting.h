// How a database of an engine is found and opened: its files, its drivers and their settings.
#pragma once

#include <chrono>
#include <span>
#include <string_view>

#include "store/connection_entries.h"

namespace zv::store::engines {

class Connecting {
 public:
    virtual ~Connecting() = default;

    /// Whether a file that begins so belongs to the engine. `head`: the first 32 bytes, or all.
    virtual bool IsFile(std::string_view) const { return false; }

    /// Names of its ODBC drivers, the newest first.
    virtual std::span<const std::string_view> Drivers() const { return {}; }
    /// Whether a driver of this name (lower case) is one of its own.
    virtual bool IsDriver(std::string_view) const { return false; }
    /// Names of its OLE DB providers, the newest first.
    virtual std::span<const std::string_view> Providers() const { return {}; }

    /// The name of a provider's entry for the password of a file; empty without one.
    virtual std::string_view PasswordEntry() const { return {}; }

    /// An address that names no engine is one of its servers.
    virtual bool TakesPlainAddresses() const { return false; }
    /// The entries that name the server at `address` to a driver.
    virtual ConnectionEntries EntriesFor(std::string_view address, std::string_view driver) const;
    /// Without a login the user's own account is asked for, where drivers offer that.
    virtual bool AsksForAccounts() const { return false; }
    /// Adds what drivers do not do by themselves and the system needs.
    virtual void Complete(ConnectionEntries&, std::chrono::milliseconds) const {}
};

/// "host:5432" in its parts; an address of the form "[::1]:5432" too.
std::pair<std::string_view, std::string_view> HostAndPort(std::string_view text);

}  // namespace zv::store::engines

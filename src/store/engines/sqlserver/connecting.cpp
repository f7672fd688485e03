#include "store/engines/connecting.h"

#include <array>

#include "base/text.h"
#include "store/engines/parts.h"

namespace zv::store::engines::sqlserver {
namespace {

constexpr auto kDrivers = std::to_array<std::string_view>(
    {"ODBC Driver 19 for SQL Server", "ODBC Driver 18 for SQL Server",
     "ODBC Driver 17 for SQL Server", "ODBC Driver 13.1 for SQL Server",
     "ODBC Driver 13 for SQL Server", "ODBC Driver 11 for SQL Server",
     "SQL Server Native Client 11.0", "SQL Server Native Client 10.0", "FreeTDS", "SQL Server"});
constexpr auto kProviders =
    std::to_array<std::string_view>({"MSOLEDBSQL19", "MSOLEDBSQL", "SQLNCLI11", "SQLOLEDB"});

class SqlServerConnecting final : public Connecting {
 public:
    std::span<const std::string_view> Drivers() const override { return kDrivers; }
    bool IsDriver(std::string_view driver) const override {
        return text::Contains(driver, "sql server");
    }
    std::span<const std::string_view> Providers() const override { return kProviders; }

    bool TakesPlainAddresses() const override { return true; }
    // "HOST:PORT" as its drivers take it, "HOST,PORT"; anything else as it stands.
    ConnectionEntries EntriesFor(std::string_view address, std::string_view driver) const override {
        const auto [host, port] = HostAndPort(address);
        ConnectionEntries entries;
        entries.Add("Driver", driver);
        if (text::EqualsIgnoreCase(driver, "FreeTDS")) {
            entries.Add("Server", host);
            if (!port.empty()) entries.Add("Port", port);
            entries.Add("TDS_Version", "7.4");
        } else {
            entries.Add("Server", port.empty() ? std::string(host)
                                               : std::string(host) + "," + std::string(port));
        }
        return entries;
    }
    bool AsksForAccounts() const override { return true; }
};

}  // namespace

const Connecting& TheConnecting() {
    static const SqlServerConnecting connecting;
    return connecting;
}

}  // namespace zv::store::engines::sqlserver

#include "store/engines/connecting.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"
#include "store/connection_text.h"
#include "store/engines/parts.h"

namespace zv::store::engines::postgresql {
namespace {

constexpr auto kDrivers = std::to_array<std::string_view>(
    {"PostgreSQL Unicode(x64)", "PostgreSQL Unicode", "PostgreSQL Unicode(x86)", "psqlODBC"});

class PostgreSqlConnecting final : public Connecting {
 public:
    std::span<const std::string_view> Drivers() const override { return kDrivers; }
    bool IsDriver(std::string_view driver) const override {
        return text::Contains(driver, "postgres") || text::Contains(driver, "psqlodbc");
    }

    ConnectionEntries EntriesFor(std::string_view path, std::string_view driver) const override {
        const Address address = ReadAddress(path);
        std::string_view place = address.place;
        std::string_view database;
        if (const std::size_t slash = place.find('/'); slash != std::string_view::npos) {
            database = place.substr(slash + 1);
            place = place.substr(0, slash);
        }
        const auto [host, port] = HostAndPort(place);
        ConnectionEntries entries;
        entries.Add("Driver", driver);
        entries.Add("Server", host.empty() ? "localhost" : host);
        if (!port.empty()) entries.Add("Port", port);
        if (!database.empty()) entries.Add("Database", database);
        if (!address.login.empty()) {
            const std::size_t colon = address.login.find(':');
            entries.Add("UID", address.login.substr(0, colon));
            if (colon != std::string_view::npos) {
                entries.Add("PWD", address.login.substr(colon + 1));
            }
        }
        return entries;
    }

    /// Limits of libpq that its driver passes on: none of them is there unless asked for. The limit
    /// on connecting is none of these: the driver makes it from the login's time limit.
    void Complete(ConnectionEntries& entries,
                  std::chrono::milliseconds statementLimit) const override {
        if (!entries.Has("BoolsAsChar")) entries.Add("BoolsAsChar", "0");
        std::string extra(entries.Value("pqopt"));
        const auto add = [&](std::string_view name, long long value) {
            if (text::Contains(extra, name)) return;
            extra += (extra.empty() ? "" : " ") + std::string(name) + "=" + std::to_string(value);
        };
        const long long statement = std::max<long long>(2, statementLimit.count() / 1000);
        add("keepalives_idle", std::max(1LL, statement / 3));
        add("keepalives_interval", std::max(1LL, statement / 10));
        add("keepalives_count", 3);
        add("tcp_user_timeout", statement * 1000);
        entries.Remove("pqopt");
        entries.Add("pqopt", extra);
    }
};

}  // namespace

const Connecting& TheConnecting() {
    static const PostgreSqlConnecting connecting;
    return connecting;
}

}  // namespace zv::store::engines::postgresql

#include "engines.h"

#ifdef _WIN32
#include <windows.h>
#endif

#include <array>
#include <filesystem>
#include <iostream>

#include "base/path.h"
#include "store/engines/engines.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/installed_drivers.h"
#include "store/odbc/odbc_connection.h"
#include "test_server/scratch_schema.h"

namespace zv::store {
namespace {

constexpr std::array<EngineTraits, 3> kTraits{{
    {.kind = EngineKind::Embedded,
     .name = "Embedded",
     .dialect = "SQLite",
     .knowsItsColumns = true,
     .keepsNameCase = true,
     .keepsNulCharacters = true,
     .takesRareCharactersInStatements = true,
     .foldsAllAlphabets = false,
     .seesNewColumnsAtOnce = true},
    {.kind = EngineKind::SqliteOverOdbc,
     .name = "SqliteOverOdbc",
     .dialect = "SQLite",
     .knowsItsColumns = false,
     .keepsNameCase = true,
     .keepsNulCharacters = false,
     .takesRareCharactersInStatements = false,
     .foldsAllAlphabets = false,
     .seesNewColumnsAtOnce = false},
    {.kind = EngineKind::PostgreSql,
     .name = "PostgreSql",
     .dialect = "PostgreSQL",
     .knowsItsColumns = true,
     .keepsNameCase = false,
     .keepsNulCharacters = false,
     .takesRareCharactersInStatements = true,
     .foldsAllAlphabets = true,
     .seesNewColumnsAtOnce = true},
}};

class EmbeddedDatabase final : public TestDatabase {
 public:
    EmbeddedDatabase() : path_(Utf8Of(folder_ / u8"t.db")) { CreateSqliteDatabase(path_); }
    std::unique_ptr<Connection> Connect() override { return OpenSqlite(path_); }
    std::unique_ptr<Connection> ConnectRaw() override {
        return OpenSqlite(path_, {.translate = false});
    }

 private:
    TemporaryFolder folder_;
    std::string path_;
};

/// The path as the driver understands it: under Wine the drivers are those of the machine around
/// it.
std::string DriverPath(const std::filesystem::path& path) {
#ifdef _WIN32
    using ToUnixPath = char*(CDECL*)(const wchar_t*);
    const auto convert = reinterpret_cast<ToUnixPath>(
        GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name"));
    if (convert) {
        char* const converted = convert(path.c_str());
        const std::string result = converted ? converted : "";
        HeapFree(GetProcessHeap(), 0, converted);
        return result;
    }
#endif
    return Utf8Of(path);
}

std::string SqliteDriver() {
    for (const std::string& driver : odbc::InstalledDrivers()) {
        if (driver.starts_with("SQLite3")) return driver;
    }
    return {};
}

class OdbcDatabase : public TestDatabase {
 public:
    std::unique_ptr<Connection> Connect() override { return odbc::OpenOdbc(Options()); }
    std::unique_ptr<Connection> ConnectRaw() override {
        odbc::OdbcOptions options = Options();
        options.translate = false;
        return odbc::OpenOdbc(options);
    }

 private:
    virtual odbc::OdbcOptions Options() const = 0;
};

class SqliteOdbcDatabase final : public OdbcDatabase {
 public:
    SqliteOdbcDatabase() : path_(folder_ / u8"t.db") { CreateSqliteDatabase(Utf8Of(path_)); }

 private:
    odbc::OdbcOptions Options() const override {
        return test_server::Patient(
            odbc::OptionsFor("Driver={" + SqliteDriver() + "};Database=" + DriverPath(path_)));
    }

    TemporaryFolder folder_;
    std::filesystem::path path_;
};

/// A schema of its own on the server that the environment names.
class PostgreSqlDatabase final : public OdbcDatabase {
 public:
    PostgreSqlDatabase() { schema_.CreateTables(); }
    ~PostgreSqlDatabase() override {
        try {
            schema_.Drop();
        } catch (const RuntimeError& error) {
            ADD_FAILURE() << "the test's schema cannot be removed: " << error.Text();
        }
    }

 private:
    odbc::OdbcOptions Options() const override {
        return test_server::Patient(odbc::OptionsFor(schema_.Address()));
    }

    test_server::ScratchSchema schema_{test_server::Address(), "zv_test"};
};

/// Says once a program which engines its tests ran on and which are missing.
class EngineSummary final : public ::testing::Environment {
 public:
    void TearDown() override {
        for (const EngineTraits& traits : kTraits) {
            const std::string reason = WhyMissing(traits.kind);
            std::cout << (reason.empty() ? "ENGINE " : "ENGINE MISSING ") << traits.name
                      << (reason.empty() ? "" : ": " + reason)
                      << "; tests not run: " << skipped[static_cast<std::size_t>(traits.kind)]
                      << '\n';
        }
    }
    static inline std::array<int, kTraits.size()> skipped{};
};
[[maybe_unused]] const auto* const summary = ::testing::AddGlobalTestEnvironment(new EngineSummary);

}  // namespace

const EngineTraits& TraitsOf(EngineKind kind) {
    for (const EngineTraits& traits : kTraits) {
        if (traits.kind == kind) return traits;
    }
    throw RuntimeError(ErrorNumber::InternalError);
}

std::string WhyMissing(EngineKind kind) {
    switch (kind) {
        case EngineKind::Embedded:
            break;
        case EngineKind::SqliteOverOdbc:
            if (SqliteDriver().empty()) return "no ODBC driver for SQLite is installed";
            break;
        case EngineKind::PostgreSql:
            if (test_server::Address().empty()) return "ZV_TEST_POSTGRESQL names no server";
            break;
    }
    return {};
}

std::unique_ptr<TestDatabase> MakeTestDatabase(EngineKind kind) {
    switch (kind) {
        case EngineKind::Embedded:
            return std::make_unique<EmbeddedDatabase>();
        case EngineKind::SqliteOverOdbc:
            return std::make_unique<SqliteOdbcDatabase>();
        case EngineKind::PostgreSql:
            return std::make_unique<PostgreSqlDatabase>();
    }
    throw RuntimeError(ErrorNumber::InternalError);
}

void EngineTest::SetUp() {
    if (const std::string reason = WhyMissing(GetParam()); !reason.empty()) {
        EngineSummary::skipped[static_cast<std::size_t>(GetParam())]++;
        GTEST_SKIP() << "engine " << Traits().name << " is missing: " << reason;
    }
    database_ = MakeTestDatabase(GetParam());
    connection_ = database_->Connect();
}

void EngineTest::MakeSideTables() {
    const auto raw = database_->ConnectRaw();
    const bool onServer = GetParam() == EngineKind::PostgreSql;
    const auto& engine = engines::Of(onServer ? "postgresql" : "sqlite");
    for (const std::string& statement : engines::StatementsOf(engine.sideTables)) {
        raw->Execute(statement);
    }
    raw->Close();
}

std::string EngineName(const ::testing::TestParamInfo<EngineKind>& info) {
    return TraitsOf(info.param).name;
}

}  // namespace zv::store

#include "script_engine.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/path.h"
#include "script_text.h"
#include "store/engines/engines.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/installed_drivers.h"
#include "store/odbc/odbc_connection.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/database_file.h"
#include "store/sqlite/sqlite_connection.h"
#include "test_server/scratch_schema.h"

namespace zv::script {
namespace {

// A scenario never waits on the real clock.
store::SqliteOptions Patient(store::SqliteOptions options) {
    options.statementLimit = test_server::kPatience;
    return options;
}

std::unique_ptr<store::Connection> OpenPatiently(store::odbc::OdbcOptions options) {
    return store::odbc::OpenOdbc(test_server::Patient(std::move(options)));
}

void Run(store::Connection& connection, std::string_view script) {
    for (const std::string& sql : store::engines::StatementsOf(script)) connection.Execute(sql);
    connection.Close();
}

// The engine of files, however they are opened.
class FileEngine : public ScriptEngine {
 public:
    void Create(const std::string& path) override { store::CreateSqliteDatabase(path); }
    void AddSideTables(const std::string& path) override {
        Run(*store::OpenSqlite(path, {.translate = false}),
            store::engines::Of("sqlite").sideTables);
    }
};

class EmbeddedEngine final : public FileEngine {
 public:
    std::unique_ptr<store::Connection> Open(const std::string& path) override {
        return store::OpenSqlite(path, Patient({}));
    }
    std::unique_ptr<store::Connection> OpenForHost(const std::string& path) override {
        return store::OpenSqlite(path, Patient({.datesAsText = true}));
    }
};

class SqliteOdbcEngine final : public FileEngine {
 public:
    SqliteOdbcEngine() {
        for (const std::string& driver : store::odbc::InstalledDrivers()) {
            if (driver.starts_with("SQLite3")) driver_ = driver;
        }
        if (driver_.empty()) {
            throw RuntimeError(ErrorNumber::CannotCreateObject,
                               "no ODBC driver for SQLite is installed");
        }
    }
    std::unique_ptr<store::Connection> Open(const std::string& path) override {
        // The driver would make a file that is missing.
        store::sqlite::CheckDatabaseFile(path);
        return OpenPatiently(store::odbc::OptionsFor("Driver={" + driver_ +
                                                     "};Timeout=5000;Database=" + PlainPath(path)));
    }
    void Clear() override {
        for (const std::string& link : links_) std::filesystem::remove(link);
        links_.clear();
    }

 private:
    // The driver garbles a path beyond ASCII, so a link leads there.
    std::string PlainPath(const std::string& path) {
        const bool plain = std::all_of(path.begin(), path.end(),
                                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        if (plain) return path;
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        links_.push_back((std::filesystem::temp_directory_path() /
                          ("zvscript-link-" + std::to_string(ticks) + ".db"))
                             .string());
        std::filesystem::create_symlink(PathOf(path), links_.back());
        return links_.back();
    }

    std::string driver_;
    std::vector<std::string> links_;
};

// A database is a schema on the server; the file at its path holds the schema's name.
class ServerEngine final : public ScriptEngine {
 public:
    ServerEngine() {
        if (server_.empty()) {
            throw RuntimeError(ErrorNumber::CannotCreateObject,
                               "ZV_TEST_POSTGRESQL names no server");
        }
        // What is wrong with the server is reported before the first scenario.
        test_server::ConnectRaw(server_);
    }

    void Create(const std::string& path) override {
        auto& schema = schemas_.emplace_back(
            std::make_unique<test_server::ScratchSchema>(server_, "zv_script"));
        schema->CreateTables();
        std::ofstream(PathOf(path)) << schema->Name();
    }

    void AddSideTables(const std::string& path) override {
        Run(*test_server::ConnectRaw(AddressOf(path)), store::engines::Of("postgresql").sideTables);
    }

    std::unique_ptr<store::Connection> Open(const std::string& path) override {
        return OpenPatiently(store::odbc::OptionsFor(AddressOf(path)));
    }

    void Clear() override {
        for (const auto& schema : schemas_) schema->Drop();
        schemas_.clear();
    }

 private:
    std::string AddressOf(const std::string& path) const {
        std::string schema;
        if (!(std::ifstream(PathOf(path)) >> schema)) {
            // A file that is missing is refused as the embedded engine refuses it.
            store::sqlite::CheckDatabaseFile(path);
            throw RuntimeError(ErrorNumber::DatabaseFailure, "no database: " + path);
        }
        return test_server::AddressWithin(server_, schema);
    }

    std::string server_ = test_server::Address();
    std::vector<std::unique_ptr<test_server::ScratchSchema>> schemas_;
};

}  // namespace

std::unique_ptr<ScriptEngine> MakeScriptEngine(const std::string& name) {
    if (name == "embedded") return std::make_unique<EmbeddedEngine>();
    if (name == "sqlite-odbc") return std::make_unique<SqliteOdbcEngine>();
    if (name == "postgresql") return std::make_unique<ServerEngine>();
    throw ScriptError("unknown engine " + name);
}

}  // namespace zv::script

#include "script_engine.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/errors.h"
#include "script_text.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/installed_drivers.h"
#include "store/odbc/odbc_connection.h"
#include "store/schema/schema.h"
#include "store/sqlite/database_file.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::script {
namespace {

class EmbeddedEngine final : public ScriptEngine {
 public:
    void Create(const std::string& path) override { store::CreateSqliteDatabase(path); }
    std::unique_ptr<store::Connection> Open(const std::string& path) override {
        return store::OpenSqlite(path);
    }
    std::unique_ptr<store::Connection> OpenForHost(const std::string& path) override {
        return store::OpenSqlite(path, {.datesAsText = true});
    }
};

std::filesystem::path FileOf(const std::string& path) {
    return std::u8string(path.begin(), path.end());
}

store::odbc::OdbcOptions OptionsOf(std::string connection) {
    store::ConnectionSettings settings;
    settings.kind = 1;
    settings.dataPath = std::move(connection);
    return store::odbc::OptionsFor(settings);
}

class SqliteOdbcEngine final : public ScriptEngine {
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
    void Create(const std::string& path) override { store::CreateSqliteDatabase(path); }
    std::unique_ptr<store::Connection> Open(const std::string& path) override {
        // The driver would make a file that is missing.
        store::sqlite::CheckDatabaseFile(path);
        return store::odbc::OpenOdbc(
            OptionsOf("Driver={" + driver_ + "};Timeout=5000;Database=" + PlainPath(path)));
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
        std::filesystem::create_symlink(FileOf(path), links_.back());
        return links_.back();
    }

    std::string driver_;
    std::vector<std::string> links_;
};

// A database is a schema on the server; the file at its path holds the schema's name.
class ServerEngine final : public ScriptEngine {
 public:
    ServerEngine() {
        const char* connection = std::getenv("ZV_TEST_POSTGRESQL");
        if (!connection) {
            throw RuntimeError(ErrorNumber::CannotCreateObject,
                               "ZV_TEST_POSTGRESQL names no server");
        }
        connection_ = connection;
        Raw(connection_)->Execute("create extension if not exists citext schema public");
    }

    void Create(const std::string& path) override {
        const std::string schema =
            "zv_script_" +
            std::to_string(std::chrono::steady_clock::now().time_since_epoch().count());
        Raw(connection_)->Execute("create schema " + schema);
        schemas_.push_back(schema);
        Raw(Within(schema))->Execute(std::string(store::PostgreSqlSchema()));
        std::ofstream(FileOf(path)) << schema;
    }

    std::unique_ptr<store::Connection> Open(const std::string& path) override {
        std::string schema;
        if (!(std::ifstream(FileOf(path)) >> schema)) {
            // A file that is missing is refused as the embedded engine refuses it.
            store::sqlite::CheckDatabaseFile(path);
            throw RuntimeError(ErrorNumber::DatabaseFailure, "no database: " + path);
        }
        return store::odbc::OpenOdbc(OptionsOf(Within(schema)));
    }

    void Clear() override {
        for (const std::string& schema : schemas_) {
            Raw(connection_)->Execute("drop schema " + schema + " cascade");
        }
        schemas_.clear();
    }

 private:
    std::string Within(const std::string& schema) const {
        return connection_ + ";ConnSettings={set search_path to " + schema + ",public}";
    }
    static std::unique_ptr<store::Connection> Raw(const std::string& connection) {
        store::odbc::OdbcOptions options = OptionsOf(connection);
        options.translate = false;
        auto opened = store::odbc::OpenOdbc(options);
        opened->Execute("set client_min_messages=warning");
        return opened;
    }

    std::string connection_;
    std::vector<std::string> schemas_;
};

}  // namespace

std::unique_ptr<ScriptEngine> MakeScriptEngine(const std::string& name) {
    if (name == "embedded") return std::make_unique<EmbeddedEngine>();
    if (name == "sqlite-odbc") return std::make_unique<SqliteOdbcEngine>();
    if (name == "postgresql") return std::make_unique<ServerEngine>();
    throw ScriptError("unknown engine " + name);
}

}  // namespace zv::script

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <system_error>

#include "base/errors.h"
#include "base/path.h"
#include "store/schema/schema.h"
#include "store/sqlite/database_file.h"

namespace zv::store {
namespace {

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};

}  // namespace

void CreateSqliteDatabase(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path file = PathOf(path);
    std::error_code error;
    if (fs::exists(file, error)) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists, "The file exists already: " + path,
                           sqlite::kErrorSource);
    }
    sqlite3* handle = nullptr;
    int code =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    std::unique_ptr<sqlite3, CloseDatabase> database(handle);
    // In one transaction, so that nobody sees some of the tables.
    const std::string script = "begin exclusive;" + std::string(SqliteSchema()) + "commit;";
    if (code == SQLITE_OK) code = sqlite3_exec(handle, script.c_str(), nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) {
        code = sqlite3_exec(handle, "pragma journal_mode=wal", nullptr, nullptr, nullptr);
    }
    if (code == SQLITE_OK) return;

    const std::string reason = handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    database.reset();
    fs::remove(file, error);
    throw RuntimeError(ErrorNumber::DatabaseFailure,
                       "The database file cannot be created (" + reason + "): " + path,
                       sqlite::kErrorSource);
}

}  // namespace zv::store

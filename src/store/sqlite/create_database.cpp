#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include "base/errors.h"
#include "base/path.h"
#include "store/engines/engines.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/database_file.h"
#include "store/sqlite/journal_mode.h"

namespace zv::store {
namespace {

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};

[[noreturn]] void Fail(const std::string& reason, const std::string& path) {
    throw RuntimeError(ErrorNumber::DatabaseFailure,
                       "The database file cannot be created (" + reason + "): " + path,
                       sqlite::kErrorSource)
        .Of(ErrorKind::CannotOpen);
}

void RefuseWhenThere(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(PathOf(path), error)) return;
    throw RuntimeError(ErrorNumber::FileAlreadyExists, "The file exists already: " + path,
                       sqlite::kErrorSource)
        .Of(ErrorKind::Other);
}

}  // namespace

void MakeSqliteTables(const std::string& path) {
    const bool share = sqlite::IsOnShare(path);
    sqlite3* handle = nullptr;
    int code = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE,
                               share ? sqlite::ShareVfs() : nullptr);
    const std::unique_ptr<sqlite3, CloseDatabase> database(handle);
    // In one transaction, so that nobody sees some of the tables.
    const std::string script =
        "begin exclusive;" + std::string(sqlite::EmbeddedEngine().schema) + "commit;";
    if (code == SQLITE_OK) code = sqlite3_exec(handle, script.c_str(), nullptr, nullptr, nullptr);
    if (code == SQLITE_OK && !share) code = sqlite::SetJournalMode(handle, "wal");
    if (code != SQLITE_OK) Fail(handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code), path);
}

void CreateSqliteDatabase(const std::string& path) {
    for (const char* suffix : {"", "-wal", "-journal"}) RefuseWhenThere(path + suffix);
    if (!std::ofstream(PathOf(path), std::ios::binary)) {
        Fail("unable to open database file", path);
    }
    try {
        MakeSqliteTables(path);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(PathOf(path), ignored);
        throw;
    }
}

}  // namespace zv::store

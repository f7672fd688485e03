// An empty database of the embedded engine in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "base/errors.h"
#include "base/path.h"
#include "doubles/rows_of.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::store {

class TemporaryFolder {
 public:
    TemporaryFolder() {
        static std::atomic<int> count{0};
        const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        folder_ = std::filesystem::temp_directory_path() /
                  ("zv_store_" + std::to_string(ticks) + "_" + std::to_string(count++));
        std::filesystem::create_directories(folder_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const char8_t* name) const { return folder_ / name; }

 private:
    std::filesystem::path folder_;
};

/// The RuntimeError that `action` throws; fails the test when it throws none.
template <typename Action>
RuntimeError ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error was thrown";
    return RuntimeError(ErrorNumber::InternalError);
}

using doubles::RowsOf;

class DatabaseTest : public ::testing::Test {
 protected:
    DatabaseTest() : path_(Utf8Of(folder_ / u8"t.db")) {
        CreateSqliteDatabase(path_);
        connection_ = OpenSqlite(path_);
    }

    std::unique_ptr<Recordset> Read(const std::string& sql) {
        return connection_->Open(sql, CursorType::ForwardOnly, LockType::ReadOnly);
    }
    std::unique_ptr<Recordset> Edit(const std::string& sql) {
        return connection_->Open(sql, CursorType::Keyset, LockType::Optimistic);
    }
    std::string Rows(const std::string& sql) { return RowsOf(*connection_, sql); }
    void Execute(const std::string& sql) { connection_->Execute(sql); }

    TemporaryFolder folder_;
    std::string path_;
    std::unique_ptr<Connection> connection_;
};

}  // namespace zv::store

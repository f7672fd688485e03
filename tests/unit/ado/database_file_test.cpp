#include "database_file.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string_view>

#include "base/errors.h"
#include "base/win32/wide.h"
#include "provider_connection.h"

namespace zv::host {
namespace {

using namespace std::string_view_literals;

class DatabaseFiles : public testing::Test {
 protected:
    void SetUp() override {
        wchar_t temporary[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        folder_ = std::wstring(temporary) + L"zv 数据 " + std::to_wstring(GetCurrentProcessId());
        CreateDirectoryW(folder_.c_str(), nullptr);
        file_ = folder_ + L"\\任务 a.db";
    }
    void TearDown() override {
        DeleteFileW(file_.c_str());
        RemoveDirectoryW(folder_.c_str());
    }
    void Write(std::string_view content) {
        const HANDLE file =
            CreateFileW(file_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        CloseHandle(file);
    }
    std::string Path() const { return win32::ToUtf8(file_); }
    void ExpectRefused(ErrorNumber number, const std::string& path, std::string_view reason) {
        try {
            RecogniseDatabase(path);
            ADD_FAILURE() << "accepted: " << path;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), number);
            EXPECT_NE(error.Text().find(path), std::string::npos) << error.Text();
            EXPECT_NE(error.Text().find(reason), std::string::npos) << error.Text();
        }
    }

    std::wstring folder_, file_;
};

TEST_F(DatabaseFiles, AnEmbeddedDatabaseIsKnownByItsStart) {
    Write("SQLite format 3\0and more"sv);
    EXPECT_EQ(RecogniseDatabase(Path()).folder, "sqlite");
}

TEST_F(DatabaseFiles, AccessFilesAreKnownByTheirText) {
    Write("\0\1\0\0Standard Jet DB\0\1\0\0\0"sv);
    EXPECT_EQ(RecogniseDatabase(Path()).folder, "access");
    Write("\0\1\0\0Standard ACE DB\0\1\0\0\0"sv);
    EXPECT_EQ(RecogniseDatabase(Path()).folder, "access");
}

TEST_F(DatabaseFiles, AMissingFileIsRefusedAndNotMade) {
    ExpectRefused(ErrorNumber::FileNotFound, Path(), "does not exist");
    EXPECT_EQ(GetFileAttributesW(file_.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DatabaseFiles, AnEmptyFileIsRefused) {
    Write("");
    ExpectRefused(ErrorNumber::DatabaseFailure, Path(), "empty");
}

TEST_F(DatabaseFiles, AForeignFileIsRefused) {
    Write("MZ and nothing of a database");
    ExpectRefused(ErrorNumber::DatabaseFailure, Path(), "neither");
    Write("SQL");
    ExpectRefused(ErrorNumber::DatabaseFailure, Path(), "neither");
}

TEST_F(DatabaseFiles, AFolderIsRefused) {
    ExpectRefused(ErrorNumber::PathFileAccess, win32::ToUtf8(folder_), "folder");
}

TEST_F(DatabaseFiles, NoPathIsRefused) {
    ExpectRefused(ErrorNumber::FileNotFound, "", "No path");
}

TEST_F(DatabaseFiles, AFileThatAnotherProgramLocksIsRefused) {
    Write("SQLite format 3\0and more"sv);
    const HANDLE lock =
        CreateFileW(file_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    ExpectRefused(ErrorNumber::PathFileAccess, Path(), "");
    CloseHandle(lock);
}

TEST(ConnectionEntry, AValueCannotAddEntries) {
    EXPECT_EQ(ConnectionEntry("Data Source", "C:\\a b;x=1\".mdb"),
              "Data Source=\"C:\\a b;x=1\"\".mdb\";");
}

TEST(OpenServer, NamesTheServerAndNoPasswordWhenNoProviderIsInstalled) {
    store::ConnectionSettings settings;
    settings.kind = 1;
    settings.dataPath = "srv-01";
    settings.password = "s3cret!";
    settings.login = "sa";
    try {
        OpenServer(settings);
        ADD_FAILURE() << "opened";
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.Text().find("srv-01"), std::string::npos) << error.Text();
        EXPECT_EQ(error.Text().find("s3cret!"), std::string::npos) << error.Text();
    }
}

}  // namespace
}  // namespace zv::host

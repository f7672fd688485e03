// The late-bound adapter against the registered opener and the embedded engine, as the control
// uses them.
#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include "base/errors.h"
#include "base/win32/wide.h"
#include "store/ado/ado_opener.h"
#include "store/sqlite/create_database.h"

namespace zv::store::ado {
namespace {

template <class Action>
RuntimeError ErrorFrom(Action&& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return RuntimeError(ErrorNumber::InternalError);
}

class Opener : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        wchar_t temporary[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        folder_ = std::wstring(temporary) + L"zv 主机 " + std::to_wstring(GetCurrentProcessId());
        CreateDirectoryW(folder_.c_str(), nullptr);
        file_ = folder_ + L"\\任务 提醒.db";
        settings_.dataPath = win32::ToUtf8(file_);
        settings_.password = "0";
        CreateSqliteDatabase(settings_.dataPath.ForDriver());
    }
    void TearDown() override {
        CoFreeUnusedLibrariesEx(0, 0);
        CoUninitialize();
        for (const wchar_t* ending : {L"", L"-wal", L"-shm"}) {
            DeleteFileW((file_ + ending).c_str());
        }
        RemoveDirectoryW(folder_.c_str());
    }
    void Overwrite(std::string_view content) {
        const HANDLE file = CreateFileW(win32::ToWide(settings_.dataPath.ForDriver()).c_str(),
                                        GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        CloseHandle(file);
    }
    RuntimeError OpenFails() {
        return ErrorFrom([&] { opener_.Open(settings_); });
    }

    std::wstring folder_, file_;
    ConnectionSettings settings_;
    AdoOpener opener_;
};

TEST_F(Opener, OpensAnEmbeddedDatabaseWhosePathHasChineseAndBlanks) {
    auto connection = opener_.Open(settings_);
    EXPECT_EQ(connection->State(), Connection::kStateOpen);
    connection->Close();
    EXPECT_EQ(connection->State(), Connection::kStateClosed);
}

TEST_F(Opener, ARowThatIsAddedComesBackWithEveryKindOfValue) {
    auto connection = opener_.Open(settings_);
    auto rows =
        connection->Open("select * from tTaskList", CursorType::Keyset, LockType::Optimistic);
    EXPECT_TRUE(rows->Eof());
    rows->AddNew();
    rows->SetField("taskTitle", Value("打电话 ☎"));
    rows->SetField("taskTime", Value(DateTime(2024, 2, 29, 13, 5, 0)));
    rows->SetField("TaskID", Value(40000));
    rows->SetField("fWay", Value());
    rows->Update();
    rows->Close();
    rows = connection->Open("select taskTitle,taskTime,TaskID,fWay,tDone from tTaskList",
                            CursorType::ForwardOnly, LockType::ReadOnly);
    ASSERT_FALSE(rows->Eof());
    EXPECT_EQ(rows->Field("taskTitle"), Value("打电话 ☎"));
    EXPECT_EQ(rows->Field("taskTime").ToDate(), DateTime(2024, 2, 29, 13, 5, 0));
    EXPECT_EQ(rows->Field("TaskID"), Value(40000));
    EXPECT_TRUE(rows->Field("fWay").IsNull());
    EXPECT_EQ(rows->Field("tDone"), Value(0));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
}

TEST_F(Opener, LongListsComeWholeAndInOrder) {
    auto connection = opener_.Open(settings_);
    constexpr int kRows = 3000;
    auto added =
        connection->Open("select * from tTaskSet", CursorType::Keyset, LockType::Optimistic);
    for (int i = 1; i <= kRows; ++i) {
        added->AddNew();
        added->SetField("TaskID", Value(i));
        added->SetField("taskTitle", Value("计划 " + std::to_string(i)));
        added->Update();
    }
    added->Close();
    auto rows = connection->Open("select TaskID,taskTitle from tTaskSet order by TaskID",
                                 CursorType::Static, LockType::ReadOnly);
    int read = 0;
    for (; !rows->Eof(); rows->MoveNext()) {
        ASSERT_EQ(rows->Field(0).ToInt32(), ++read);
        ASSERT_EQ(rows->Field(1).ToText(), "计划 " + std::to_string(read));
    }
    EXPECT_EQ(read, kRows);
}

TEST_F(Opener, AnErrorOfTheEngineKeepsItsNumberAndText) {
    auto connection = opener_.Open(settings_);
    const auto error = ErrorFrom([&] { connection->Execute("delete from noSuchTable"); });
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseTable);
    EXPECT_EQ(error.Kind(), ErrorKind::NoTable);
    EXPECT_NE(error.Text().find("noSuchTable"), std::string::npos) << error.Text();
}

TEST_F(Opener, AnApostropheInATextIsAnErrorAndTheConnectionLivesOn) {
    auto connection = opener_.Open(settings_);
    EXPECT_THROW(connection->Execute("Update tTaskSet Set DoneMan='O'Brien'"), RuntimeError);
    EXPECT_EQ(connection->Execute("Update tTaskSet Set DoneMan='x'"), 0);
}

TEST_F(Opener, AMissingFileIsReportedWithItsPathAndIsNotMade) {
    settings_.dataPath = settings_.dataPath.ForDriver() + ".gone";
    const auto error = OpenFails();
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(error.Kind(), ErrorKind::FileMissing);
    EXPECT_NE(error.Text().find(settings_.dataPath.ForDriver()), std::string::npos) << error.Text();
    EXPECT_EQ(GetFileAttributesW(win32::ToWide(settings_.dataPath.ForDriver()).c_str()),
              INVALID_FILE_ATTRIBUTES);
}

TEST_F(Opener, EmptyForeignAndTruncatedFilesAreReportedWithTheirPath) {
    using namespace std::string_view_literals;
    for (const std::string_view content : {""sv, "no database at all"sv, "SQLite format 3\0"sv}) {
        Overwrite(content);
        const auto error = OpenFails();
        EXPECT_NE(error.Text().find(settings_.dataPath.ForDriver()), std::string::npos)
            << error.Text();
    }
}

TEST_F(Opener, AnAccessFileNeedsAProviderThatIsInstalled) {
    using namespace std::string_view_literals;
    Overwrite("\0\1\0\0Standard Jet DB\0\0\0\0\0"sv);
    settings_.password = "s3cret";
    const auto error = OpenFails();
    EXPECT_NE(error.Text().find(settings_.dataPath.ForDriver()), std::string::npos) << error.Text();
    EXPECT_EQ(error.Text().find("s3cret"), std::string::npos);
}

TEST_F(Opener, AServerNeedsAProviderThatIsInstalled) {
    settings_.kind = 1;
    settings_.dataPath = "no-such-server";
    const auto error = OpenFails();
    EXPECT_NE(error.Text().find("no-such-server"), std::string::npos) << error.Text();
}

}  // namespace
}  // namespace zv::store::ado

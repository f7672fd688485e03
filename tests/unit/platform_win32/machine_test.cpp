#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "base/errors.h"
#include "base/path.h"
#include "base/win32/wide.h"
#include "platform/win32/host_module_runner.h"
#include "platform/win32/machine.h"

namespace zv::platform::win32 {
namespace {

std::string ModuleFile() {
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return zv::win32::ToUtf8(std::wstring_view(path, length));
}

TEST(SystemClock, ReportsLocalTime) {
    SYSTEMTIME before, after;
    GetLocalTime(&before);
    const DateTime now = SystemClock().Now();
    GetLocalTime(&after);
    const auto of = [](const SYSTEMTIME& t) {
        return DateTime(t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond);
    };
    EXPECT_LE(of(before), now);
    EXPECT_LE(now, of(after));
}

TEST(SystemAnsiCodePage, CountsOneByteForAsciiAndForWhatItDoesNotKnow) {
    SystemAnsiCodePage page;
    EXPECT_EQ(page.ByteWidth(U'a'), 1);
    EXPECT_EQ(page.ByteWidth(U'\U0001F600'), 1);
}

TEST(SystemAnsiCodePage, CountsTheBytesOfTheSystemsCodePage) {
    CPINFO info;
    ASSERT_TRUE(GetCPInfo(CP_ACP, &info));
    // 任 is a double-byte character wherever it exists; elsewhere it becomes a question mark.
    EXPECT_EQ(SystemAnsiCodePage().ByteWidth(U'任'), info.MaxCharSize >= 2 ? 2 : 1);
}

TEST(SystemFiles, FindsFilesButNotFolders) {
    SystemFiles files;
    const std::string self = ModuleFile();
    EXPECT_TRUE(files.FileExists(self));
    EXPECT_FALSE(files.FileExists(self.substr(0, self.find_last_of('\\'))));
    EXPECT_FALSE(files.FileExists(self + ".missing"));
    EXPECT_FALSE(files.FileExists(""));
}

/// A folder of its own below the temporary one, ended by a backslash.
class OutputFolder {
 public:
    OutputFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("zv-output-" + std::to_string(GetCurrentProcessId()))) {
        std::filesystem::create_directories(path_);
    }
    ~OutputFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    std::string Path(const std::string& name) const { return Utf8Of(path_) + "\\" + name; }
    std::filesystem::path File(const char* name) const { return path_ / name; }
    std::ptrdiff_t Count() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }

 private:
    std::filesystem::path path_;
};

std::string Content(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

template <typename Act>
ErrorNumber NumberOfFailure(Act act, const std::string& path) {
    try {
        act();
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.Text().find("\r\n" + path), std::string::npos) << error.Text();
        return error.Number();
    }
    return {};
}

TEST(SystemFiles, AFileAppearsUnderItsNameWithItsCommit) {
    const OutputFolder folder;
    SystemFiles files;
    const auto file = files.Create(folder.Path("清单.csv"));
    file->Write("a");
    file->Write("b");
    EXPECT_FALSE(files.FileExists(folder.Path("清单.csv")));
    file->Commit();
    EXPECT_TRUE(files.FileExists(folder.Path("清单.csv")));
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SystemFiles, ACommitReplacesAndWithoutOneNothingIsLost) {
    const OutputFolder folder;
    std::ofstream(folder.File("t.csv")) << "old and longer";
    SystemFiles files;
    files.Create(folder.Path("t.csv"))->Write("dropped");
    EXPECT_EQ(Content(folder.File("t.csv")), "old and longer");
    const auto file = files.Create(folder.Path("t.csv"));
    file->Write("new");
    file->Commit();
    EXPECT_EQ(Content(folder.File("t.csv")), "new");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(SystemFiles, WritingFailsWithTheClassicNumbersTheReasonAndThePath) {
    const OutputFolder folder;
    SystemFiles files;
    const std::string missing = folder.Path("none\\t.csv");
    EXPECT_EQ(NumberOfFailure([&] { files.Create(missing); }, missing), ErrorNumber::PathNotFound);
    const std::string taken = folder.Path("sub");
    std::filesystem::create_directory(folder.File("sub"));
    EXPECT_EQ(NumberOfFailure([&] { files.Create(taken); }, taken), ErrorNumber::PermissionDenied);
}

TEST(SystemFiles, AFileInUseIsReportedBeforeTheWork) {
    const OutputFolder folder;
    std::ofstream(folder.File("t.csv")) << "old";
    const HANDLE inUse = CreateFileW(folder.File("t.csv").c_str(), GENERIC_READ, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(inUse, INVALID_HANDLE_VALUE);
    SystemFiles files;
    const std::string path = folder.Path("t.csv");
    EXPECT_EQ(NumberOfFailure([&] { files.Create(path); }, path), ErrorNumber::PermissionDenied);
    CloseHandle(inUse);
    EXPECT_EQ(Content(folder.File("t.csv")), "old");
}

TEST(SystemFiles, ApplicationFolderIsThatOfTheOwnFileWithoutBackslash) {
    const std::string self = ModuleFile();
    EXPECT_EQ(SystemFiles().ApplicationFolder(), self.substr(0, self.find_last_of('\\')));
}

TEST(SystemShell, StartOfAMissingProgramIsError53) {
    try {
        SystemShell().Start("C:\\no such folder\\dialer.exe");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    }
}

TEST(SystemShell, OpenOfAMissingFileIsAnErrorThatNamesIt) {
    try {
        SystemShell().Open("C:\\no such folder\\missing.txt");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
        EXPECT_NE(error.Text().find("missing.txt"), std::string::npos);
    }
}

TEST(SystemShell, DialerPathIsEmptyOrAFile) {
    const std::string path = SystemShell().DialerPath();
    if (!path.empty()) {
        EXPECT_TRUE(SystemFiles().FileExists(path));
    }
}

// Keys reach the window that has the focus, as characters and not through the keyboard layout.
TEST(SystemShell, SendKeysTypesAnyCharacterIntoTheFocusedWindow) {
    HWND edit = CreateWindowExW(WS_EX_TOPMOST, L"EDIT", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 40,
                                nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(edit);
    SetForegroundWindow(edit);
    SetFocus(edit);
    SystemShell().SendKeys("0551-28任");
    std::wstring text;
    for (int i = 0; i < 100 && text.size() < 8; i++) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        wchar_t buffer[32];
        text.assign(buffer, static_cast<std::size_t>(GetWindowTextW(edit, buffer, 32)));
        Sleep(10);
    }
    DestroyWindow(edit);
    EXPECT_EQ(zv::win32::ToUtf8(text), "0551-28任");
}

}  // namespace
}  // namespace zv::platform::win32

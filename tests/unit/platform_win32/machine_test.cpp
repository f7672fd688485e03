#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "base/errors.h"
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

TEST(SystemClock, TellsLocalTime) {
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

#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include "base/errors.h"
#include "module_runner_object.h"
#include "store/ado/calls.h"

namespace zv::host {
namespace {

using store::ado::Call;
using store::ado::GetProperty;
using store::ado::Member;
using store::ado::PutProperty;
using win32::ComPtr;
using win32::Variant;

// The registered program: "cmd" writes what it was told into a file.
class ModuleRunner : public testing::Test {
 protected:
    void SetUp() override {
        runner_ = ComPtr<IDispatch>::Attach(static_cast<IDispatch*>(new ModuleRunnerObject()));
    }
    void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, kModulesKey); }

    void Register(const wchar_t* module, const std::wstring& program) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kModulesKey, module, REG_SZ, program.c_str(),
                                  static_cast<DWORD>((program.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    RuntimeError StartFails(const char* module) {
        Member start(L"Start");
        try {
            Call(*runner_, start, {Variant(module).Get()});
        } catch (const RuntimeError& error) {
            return error;
        }
        ADD_FAILURE() << "started";
        return RuntimeError(ErrorNumber::InternalError);
    }

    ComPtr<IDispatch> runner_;
};

TEST_F(ModuleRunner, StartModeIsNineUnlessSet) {
    Member mode(L"StartMode");
    EXPECT_EQ(GetProperty(*runner_, mode).Get().lVal, 9);
    PutProperty(*runner_, mode, Variant(std::int16_t{3}).Get());
    EXPECT_EQ(GetProperty(*runner_, mode).Get().lVal, 3);
}

TEST_F(ModuleRunner, ThePasswordIsNotHandedOut) {
    Member password(L"Password");
    PutProperty(*runner_, password, Variant("x").Get());
    EXPECT_THROW(GetProperty(*runner_, password), RuntimeError);
}

TEST_F(ModuleRunner, AModuleThatIsNotRegisteredIsNamed) {
    const auto error = StartFails("账务");
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    EXPECT_NE(error.Text().find("账务"), std::string::npos);
}

TEST_F(ModuleRunner, AProgramThatIsGoneIsNamed) {
    Register(L"gone", L"C:\\no such\\program.exe");
    const auto error = StartFails("gone");
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    EXPECT_NE(error.Text().find("C:\\no such\\program.exe"), std::string::npos);
}

TEST_F(ModuleRunner, NoModuleIsAnError) {
    EXPECT_EQ(StartFails("").Number(), ErrorNumber::InvalidProcedureCall);
}

TEST_F(ModuleRunner, TheProgramGetsWhatWasSetAndThePasswordIsNotOnItsCommandLine) {
    // This program itself is the module: started so, it writes down what reaches it and ends.
    wchar_t self[MAX_PATH], folder[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    GetTempPathW(MAX_PATH, folder);
    const std::wstring report =
        std::wstring(folder) + L"zv_module_" + std::to_wstring(GetCurrentProcessId()) + L".txt";
    DeleteFileW(report.c_str());
    SetEnvironmentVariableW(L"ZV_TEST_MODULE_REPORT", report.c_str());
    Register(L"echo", self);
    Member heading(L"Heading"), user(L"UserName"), password(L"Password"), path(L"UserPath");
    PutProperty(*runner_, heading, Variant("修改 \"x\\").Get());
    PutProperty(*runner_, user, Variant("王五").Get());
    PutProperty(*runner_, password, Variant("s3cret").Get());
    PutProperty(*runner_, path, Variant("C:\\数据\\a b.mdb").Get());
    Member start(L"Start");
    Call(*runner_, start, {Variant("echo").Get()});
    SetEnvironmentVariableW(L"ZV_TEST_MODULE_REPORT", nullptr);

    std::wstring text;
    for (int i = 0; i < 200 && !text.ends_with(L"\nend"); ++i) {
        Sleep(50);
        const HANDLE file =
            CreateFileW(report.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) continue;
        std::wstring buffer(4096, L'\0');
        DWORD bytes = 0;
        ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size() * sizeof(wchar_t)), &bytes,
                 nullptr);
        CloseHandle(file);
        text = buffer.substr(0, bytes / sizeof(wchar_t));
    }
    DeleteFileW(report.c_str());
    EXPECT_NE(text.find(L"[/module:echo][/heading:修改 \"x\\][/language:0][/startmode:9]"),
              std::wstring::npos)
        << win32::ToUtf8(text);
    EXPECT_NE(text.find(L"ZV_USERNAME=王五\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"ZV_PASSWORD=s3cret\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"ZV_USERPATH=C:\\数据\\a b.mdb\n"), std::wstring::npos);
    EXPECT_EQ(text.find(L"[/password"), std::wstring::npos);
}

// Runs before the tests of the program: acts as the started module when asked to.
const int kActAsModule = [] {
    wchar_t report[MAX_PATH];
    if (!GetEnvironmentVariableW(L"ZV_TEST_MODULE_REPORT", report, MAX_PATH)) return 0;
    std::wstring text;
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) text += L"[" + std::wstring(arguments[i]) + L"]";
    text += L"\n";
    for (const wchar_t* name : {L"ZV_USERNAME", L"ZV_PASSWORD", L"ZV_USERPATH"}) {
        wchar_t value[MAX_PATH] = L"";
        GetEnvironmentVariableW(name, value, MAX_PATH);
        text += std::wstring(name) + L"=" + value + L"\n";
    }
    text += L"end";
    const HANDLE file =
        CreateFileW(report, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &written,
              nullptr);
    CloseHandle(file);
    ExitProcess(0);
}();

}  // namespace
}  // namespace zv::host

#include <windows.h>

#include <shellapi.h>

#include <iterator>
#include <string>
#include <vector>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/wide.h"
#include "platform/win32/machine.h"

namespace zv::platform::win32 {

using zv::win32::SystemMessage;
using zv::win32::ToUtf8;
using zv::win32::ToWide;

namespace {

// How long a started program gets until keys may be sent to it.
constexpr DWORD kStartMilliseconds = 3000;

ErrorNumber NumberOfShellResult(INT_PTR result) {
    switch (result) {
        case SE_ERR_FNF:
        case SE_ERR_PNF:
        case SE_ERR_NOASSOC:
            return ErrorNumber::FileNotFound;
        case SE_ERR_ACCESSDENIED:
        case SE_ERR_SHARE:
            return ErrorNumber::PathFileAccess;
        default:
            return ErrorNumber::InvalidProcedureCall;
    }
}

INPUT KeyInput(WORD virtualKey, wchar_t unit, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = unit;
    input.ki.dwFlags = (virtualKey == 0 ? KEYEVENTF_UNICODE : 0u) | (up ? KEYEVENTF_KEYUP : 0u);
    return input;
}

WORD KeyOfControlCharacter(wchar_t unit) {
    switch (unit) {
        case L'\r':
            return VK_RETURN;
        case L'\t':
            return VK_TAB;
        default:
            return 0;
    }
}

}  // namespace

void SystemShell::Open(const std::string& target) {
    // The target is data: it goes to the verb as one file name, with no parameters and through no
    // command line.
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, L"Open", ToWide(target).c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    if (result > 32) return;
    const DWORD code = GetLastError();
    std::string text = target;
    if (code != 0) text += ": " + SystemMessage(HRESULT_FROM_WIN32(code));
    throw RuntimeError(NumberOfShellResult(result), std::move(text));
}

std::string SystemShell::DialerPath() const {
    wchar_t folder[MAX_PATH];
    const UINT length = GetWindowsDirectoryW(folder, static_cast<UINT>(std::size(folder)));
    if (length == 0 || length >= std::size(folder)) return {};
    std::wstring path(folder, length);
    if (path.back() != L'\\') path += L'\\';
    path += L"dialer.exe";
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool isFile =
        attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
    return isFile ? ToUtf8(path) : std::string();
}

void SystemShell::Start(const std::string& program) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    // The quotes keep a blank in the path from ending the program's name.
    std::wstring commandLine = L"\"" + ToWide(program) + L"\"";
    if (!CreateProcessW(ToWide(program).c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0,
                        nullptr, nullptr, &startup, &process)) {
        throw RuntimeError(ErrorNumber::FileNotFound,
                           program + ": " + SystemMessage(HRESULT_FROM_WIN32(GetLastError())));
    }
    WaitForInputIdle(process.hProcess, kStartMilliseconds);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

void SystemShell::SendKeys(const std::string& keys) {
    std::vector<INPUT> inputs;
    for (const wchar_t unit : ToWide(keys)) {
        if (unit == L'\n') continue;
        const WORD key = KeyOfControlCharacter(unit);
        inputs.push_back(KeyInput(key, key == 0 ? unit : L'\0', false));
        inputs.push_back(KeyInput(key, key == 0 ? unit : L'\0', true));
    }
    if (inputs.empty()) return;
    const auto count = static_cast<UINT>(inputs.size());
    if (SendInput(count, inputs.data(), sizeof(INPUT)) != count) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           SystemMessage(HRESULT_FROM_WIN32(GetLastError())));
    }
}

}  // namespace zv::platform::win32

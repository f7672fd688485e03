// zvAlert.exe, the alerter that starts with the workstation:
//
//   zvAlert           reminds the user who logged in last; one for a user
//   zvAlert --exit    asks the one that runs to end, and waits until it has
//
// Exit codes: 0 done, or there is nothing to do; 1 it cannot work here, or another one does not
// end.
#include <windows.h>

#include <ole2.h>

#include <memory>
#include <string_view>

#include "alerter/windows/alerter_window.h"
#include "automation/module.h"
#include "base/win32/com_error.h"
#include "forms/win32/win32_backend.h"
#include "platform/win32/host_module_runner.h"
#include "platform/win32/host_report_printer.h"
#include "platform/win32/machine.h"
#include "resources/win32/registry_settings.h"
#include "store/ado/ado_opener.h"

namespace {

using namespace zv;

constexpr wchar_t kOnlyOne[] = L"Local\\zvAlert";
constexpr DWORD kEndMilliseconds = 15'000;

/// Named by the session of the user: each has an alerter of his own.
class OnlyOne {
 public:
    OnlyOne() : mutex_(CreateMutexW(nullptr, FALSE, kOnlyOne)), first_(GetLastError() == 0) {}
    ~OnlyOne() {
        if (mutex_) CloseHandle(mutex_);
    }
    OnlyOne(const OnlyOne&) = delete;
    OnlyOne& operator=(const OnlyOne&) = delete;
    bool IsFirst() const { return mutex_ && first_; }

 private:
    HANDLE mutex_;
    bool first_;
};

struct Program {
    forms::win32::Win32Backend backend{automation::module::Handle()};
    platform::win32::HostModuleRunner runner;
    platform::win32::HostReportPrinter printer;
    platform::win32::SystemMachine machine{runner, printer};
    resources::win32::RegistrySettings settings;
    store::ado::AdoOpener opener;
    forms::WindowSystem windows{backend};
    Session session{machine.machine, settings, opener, windows};
    alerter::AlerterWindow window{session};
};

int RunMessages() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

int Remind() {
    const OnlyOne here;
    if (!here.IsFirst()) return 0;
    int status = 1;
    const HRESULT hr = win32::Guarded("zvAlert", [&] {
        const auto program = std::make_unique<Program>();
        status = program->window.Start() ? RunMessages() : 0;
        program->windows.EndSession();
        return S_OK;
    });
    return SUCCEEDED(hr) ? status : 1;
}

int EndOther() {
    const HWND window = FindWindowW(alerter::kAlerterClass, nullptr);
    if (!window) return 0;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const HANDLE other = OpenProcess(SYNCHRONIZE, FALSE, process);
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (!other) return 1;
    const bool ended = WaitForSingleObject(other, kEndMilliseconds) == WAIT_OBJECT_0;
    CloseHandle(other);
    return ended ? 0 : 1;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR lpCmdLine, int) {
    if (std::wstring_view(lpCmdLine) == L"--exit") return EndOther();
    if (FAILED(OleInitialize(nullptr))) return 1;
    const int status = Remind();
    OleUninitialize();
    return status;
}

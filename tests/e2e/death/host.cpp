#include "host.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "base/win32/variant.h"
#include "store/ado/calls.h"

namespace zv::death {
namespace {

constexpr UINT kDestroySelf = WM_APP + 1;
constexpr UINT kQuit = WM_APP + 2;
constexpr UINT kEndSession = WM_APP + 3;
constexpr UINT kDestroyOther = WM_APP + 4;
constexpr UINT kMeanwhile = WM_APP + 5;
constexpr int kExitCode = 7;
constexpr double kLongest = 10;

using Clock = std::chrono::steady_clock;
double Since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

std::vector<HWND> WindowsOf(DWORD thread) {
    std::vector<HWND> windows;
    EnumThreadWindows(thread, Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring NameOfWindow(HWND window) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(window, L"zv.Name")));
    wchar_t name[128] = L"";
    if (atom) GlobalGetAtomNameW(atom, name, 128);
    return name;
}

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
        case kDestroySelf:
            DestroyWindow(window);
            return 0;
        case kQuit:
            PostQuitMessage(kExitCode);
            return 0;
        case kEndSession:
            for (const HWND each : WindowsOf(GetCurrentThreadId())) {
                SendMessageW(each, WM_QUERYENDSESSION, 0, 0);
            }
            for (const HWND each : WindowsOf(GetCurrentThreadId())) {
                if (IsWindow(each)) SendMessageW(each, WM_ENDSESSION, TRUE, 0);
            }
            return 0;
        case kDestroyOther:
            DestroyWindow(reinterpret_cast<HWND>(lParam));
            return 0;
        case kMeanwhile:
            return (*reinterpret_cast<const std::function<bool()>*>(lParam))() ? TRUE : FALSE;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

HWND MakeHostWindow(const wchar_t* title) {
    static const ATOM windowClass = [] {
        WNDCLASSW description{};
        description.lpfnWndProc = &HostProcedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"zvDeathHost";
        return RegisterClassW(&description);
    }();
    return CreateWindowExW(0, MAKEINTATOM(windowClass), title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40,
                           40, 300, 200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void Bring(Death death, HWND owner, HWND bystander, HWND target) {
    switch (death) {
        case Death::OwnerDestroyed:
            PostMessageW(owner, kDestroySelf, 0, 0);
            break;
        case Death::OwnerDestroyedFromOutside: {
            DWORD_PTR result = 0;
            SendMessageTimeoutW(owner, kDestroySelf, 0, 0, SMTO_NORMAL, 5000, &result);
            break;
        }
        case Death::LoopQuit:
            PostMessageW(bystander, kQuit, 0, 0);
            break;
        case Death::SessionEnded:
            PostMessageW(bystander, kEndSession, 0, 0);
            break;
        case Death::HandleDestroyed:
            PostMessageW(bystander, kDestroyOther, 0, reinterpret_cast<LPARAM>(target));
            break;
    }
}

int EnabledForms(DWORD thread) {
    int count = 0;
    for (const HWND window : WindowsOf(thread)) {
        count +=
            ClassOf(window) == L"zv.Form" && IsWindowVisible(window) && IsWindowEnabled(window);
    }
    return count;
}

bool IsLeftOver(HWND window) {
    const std::wstring name = ClassOf(window);
    return name == L"zv.Form" || name == L"#32770" || name == L"#32768";
}

}  // namespace

const char* NameOf(Death death) {
    switch (death) {
        case Death::OwnerDestroyed:
            return "its owner is destroyed";
        case Death::OwnerDestroyedFromOutside:
            return "its owner is destroyed by another thread's message";
        case Death::LoopQuit:
            return "the message loop is quit";
        case Death::SessionEnded:
            return "the session ends";
        case Death::HandleDestroyed:
            return "it is destroyed itself";
    }
    return "";
}

bool Wait(double seconds, const std::function<bool()>& ready) {
    const auto begin = Clock::now();
    for (;;) {
        if (ready()) return true;
        if (Since(begin) > seconds) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

HWND FindNamed(DWORD thread, const std::wstring& name) {
    for (const HWND window : WindowsOf(thread)) {
        if (NameOfWindow(window) == name && IsWindowVisible(window)) return window;
    }
    return nullptr;
}

HWND FindDialog(DWORD thread) {
    for (const HWND window : WindowsOf(thread)) {
        if (ClassOf(window) == L"#32770" && IsWindowVisible(window)) return window;
    }
    return nullptr;
}

namespace {

struct ChildSearch {
    const std::wstring& name;
    HWND found;
};

BOOL CALLBACK CompareChild(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<ChildSearch*>(data);
    if (NameOfWindow(window) != search.name) return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

HWND FindChild(HWND parent, const std::wstring& name) {
    ChildSearch search{name, nullptr};
    EnumChildWindows(parent, CompareChild, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

win32::ComPtr<IDispatch> CreateControl() {
    CLSID id;
    win32::ComPtr<IDispatch> control;
    if (FAILED(CLSIDFromProgID(L"zv_Task.zvTask", &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                control.PutVoid()))) {
        return {};
    }
    return control;
}

bool MayUnload() {
    const HMODULE file = GetModuleHandleW(L"zv_Task.ocx");
    if (!file) return true;
    const auto ask = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(file, "DllCanUnloadNow")));
    return ask && ask() == S_OK;
}

void SetText(IDispatch& control, const wchar_t* name, const std::string& text) {
    store::ado::Member member(name);
    store::ado::PutProperty(control, member, win32::Variant(text).Get());
}

HRESULT Refresh(IDispatch& control, long mode, short modal) {
    store::ado::Member member(L"refresh");
    try {
        store::ado::Call(
            control, member,
            {win32::Variant(std::int32_t{mode}).Get(), win32::Variant(std::int32_t{modal}).Get()});
        return S_OK;
    } catch (const RuntimeError& error) {
        return static_cast<HRESULT>(error.Number());
    }
}

void PumpWaiting() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

Outcome Play(const Case& one, Death death, const std::string& dataPath) {
    Outcome outcome;
    std::thread host([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        const DWORD thread = GetCurrentThreadId();
        const HWND bystander = MakeHostWindow(L"bystander");
        const HWND owner = MakeHostWindow(L"owner");
        SetActiveWindow(owner);
        auto control = CreateControl();
        if (!control) return;
        SetText(*control, L"UserPath", dataPath);
        SetText(*control, L"UserName", "张三");
        SetText(*control, L"myPower", std::string(350, '1'));
        HANDLE returned = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        Clock::time_point begin{};
        std::thread hand([&] {
            const HWND target = one.open(thread);
            outcome.stood = target != nullptr;
            if (target && one.meanwhile) {
                outcome.meanwhileGood = SendMessageW(bystander, kMeanwhile, 0,
                                                     reinterpret_cast<LPARAM>(&one.meanwhile)) != 0;
            }
            begin = Clock::now();
            // A window that did not come is still to be ended.
            Bring(target ? death : Death::LoopQuit, owner, bystander, target);
            if (one.above && death == Death::HandleDestroyed) {
                outcome.lowerEnabled = Wait(2, [&] { return !IsWindow(target); }) &&
                                       Wait(2, [&] { return EnabledForms(thread) > 0; });
                begin = Clock::now();
                Bring(Death::LoopQuit, owner, bystander, target);
            }
            if (WaitForSingleObject(returned, static_cast<DWORD>(kLongest * 1000)) ==
                WAIT_OBJECT_0) {
                return;
            }
            std::printf("FAIL %ls, %s: refresh does not return\n", one.name.c_str(), NameOf(death));
            std::fflush(stdout);
            TerminateProcess(GetCurrentProcess(), 3);
        });
        outcome.result = one.call ? one.call(dataPath) : Refresh(*control, one.mode, 1);
        SetEvent(returned);
        const auto end = Clock::now();
        hand.join();
        CloseHandle(returned);
        outcome.seconds = std::chrono::duration<double>(end - begin).count();
        if (death == Death::LoopQuit || (one.above && death == Death::HandleDestroyed)) {
            MSG message;
            outcome.quitIsHeard = false;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                if (message.message == WM_QUIT) {
                    outcome.quitIsHeard = message.wParam == kExitCode;
                    break;
                }
                DispatchMessageW(&message);
            }
        } else {
            PumpWaiting();
        }
        outcome.othersEnabled = IsWindowEnabled(bystander) != FALSE;
        if (IsWindow(owner)) outcome.othersEnabled &= IsWindowEnabled(owner) != FALSE;
        for (const HWND window : WindowsOf(thread)) outcome.windowsLeft += IsLeftOver(window);
        control.Reset();
        outcome.mayUnload = MayUnload();
        if (IsWindow(owner)) DestroyWindow(owner);
        DestroyWindow(bystander);
        CoUninitialize();
    });
    host.join();
    return outcome;
}

}  // namespace zv::death

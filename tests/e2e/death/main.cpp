// Ends the control's windows in every way but the user's, and serves threads after each other:
// zvDeath DATABASE CONTROL, both registered; CONTROL is the path of zv_Task.ocx. Prints a line for
// each case and "N passed, N failed"; the exit status is 0 when nothing failed.
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>

#include "base/win32/wide.h"
#include "cases.h"
#include "store/ado/ado_opener.h"
#include "store/connection.h"

namespace zv::death {
namespace {

int passed = 0;
int failed = 0;

void Check(const std::string& what, bool good) {
    (good ? passed : failed)++;
    std::printf("%s %s\n", good ? "ok" : "FAIL", what.c_str());
    std::fflush(stdout);
}

void PlayAll(const std::string& dataPath) {
    constexpr double kMostSeconds = 2;
    for (const Case& one : Cases()) {
        for (const Death death : {Death::OwnerDestroyed, Death::OwnerDestroyedFromOutside,
                                  Death::LoopQuit, Death::SessionEnded, Death::HandleDestroyed}) {
            const Outcome outcome = Play(one, death, dataPath);
            const std::string name = win32::ToUtf8(one.name) + ", " + NameOf(death);
            if (!outcome.stood) {
                Check(name + ": it comes up, refresh answers " + std::to_string(outcome.result),
                      false);
                continue;
            }
            std::string reason;
            if (outcome.seconds > kMostSeconds) reason += ", refresh takes too long";
            if (!outcome.meanwhileGood) reason += ", a second call is not refused";
            if (!outcome.lowerEnabled) reason += ", the window below cannot be used";
            if (!outcome.othersEnabled) reason += ", a window of the host is disabled";
            if (!outcome.quitIsHeard) reason += ", the host's loop does not hear of the end";
            if (outcome.windowsLeft > 0) reason += ", windows are left";
            if (!outcome.mayUnload) reason += ", the file cannot be unloaded";
            Check(name + reason, reason.empty());
        }
    }
}

void RunOnThread(const std::function<void()>& body) {
    std::thread thread([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        body();
        CoUninitialize();
    });
    thread.join();
}

// Each thread that ends leaves the control to the next, whatever it left open.
void ServeThreads(const std::string& dataPath) {
    for (const bool closes : {true, false}) {
        HRESULT result = E_FAIL;
        RunOnThread([&] {
            auto control = CreateControl();
            if (!control) return;
            SetText(*control, L"UserPath", dataPath);
            result = Refresh(*control, closes ? 8 : 2, 0);
        });
        Check(closes ? "the first thread is served" : "another thread is served", result == S_OK);
    }
    RunOnThread([&] {
        auto control = CreateControl();
        Check("a thread is served after one that left a window open", control.Get() != nullptr);
        if (!control) return;
        SetText(*control, L"UserPath", dataPath);
        Check("and may open one", Refresh(*control, 2, 0) == S_OK);
        const HWND editor = FindNamed(GetCurrentThreadId(), L"frmTaskSet");
        Check("which stands", editor != nullptr);
        SendMessageW(editor, WM_CLOSE, 0, 0);
        PumpWaiting();
        Check("and goes", !IsWindow(editor));
        control.Reset();
        Check("the file may be unloaded then", MayUnload());
    });
}

UINT strangerHeard = 0;
LRESULT CALLBACK StrangerProcedure(HWND window, UINT message, WPARAM wParam,
                                   LPARAM lParam) noexcept {
    if (message == WM_KEYDOWN) strangerHeard = static_cast<UINT>(wParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

// What a window of another module keeps is not this module's to read, whatever its class is called.
void LeaveStrangersAlone(const std::string& dataPath) {
    RunOnThread([&] {
        strangerHeard = 0;
        WNDCLASSW description{};
        description.lpfnWndProc = StrangerProcedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"zv.Form";
        RegisterClassW(&description);
        const HWND stranger =
            CreateWindowExW(0, L"zv.Form", L"stranger", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                            100, 100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        std::string kept(4096, '\0');
        SetWindowLongPtrW(stranger, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(kept.data()));
        auto control = CreateControl();
        SetText(*control, L"UserPath", dataPath);
        Refresh(*control, 2, 0);
        const HWND editor = FindNamed(GetCurrentThreadId(), L"frmTaskSet");
        PostMessageW(stranger, WM_KEYDOWN, VK_F5, 0);
        PumpWaiting();
        Check("a stranger of the same class name gets its keys", strangerHeard == VK_F5);
        Check("and keeps its memory", kept == std::string(4096, '\0'));
        SendMessageW(editor, WM_CLOSE, 0, 0);
        PumpWaiting();
        control.Reset();
        DestroyWindow(stranger);
        UnregisterClassW(L"zv.Form", GetModuleHandleW(nullptr));
    });
}

win32::ComPtr<IDispatch> CreateFrom(HMODULE file) {
    const auto get = reinterpret_cast<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(
        reinterpret_cast<void*>(GetProcAddress(file, "DllGetClassObject")));
    CLSID id;
    win32::ComPtr<IClassFactory> factory;
    win32::ComPtr<IDispatch> control;
    if (FAILED(CLSIDFromProgID(L"zv_Task.zvTask", &id)) || !get ||
        FAILED(get(id, IID_IClassFactory, factory.PutVoid()))) {
        return {};
    }
    factory->CreateInstance(nullptr, IID_IDispatch, control.PutVoid());
    return control;
}

void LoadTwoCopies(const std::string& dataPath, const std::filesystem::path& file) {
    RunOnThread([&] {
        const auto copy =
            std::filesystem::path(win32::ToWide(dataPath)).parent_path() / L"zv_Task_copy.ocx";
        std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
        const HMODULE modules[] = {LoadLibraryW(file.c_str()), LoadLibraryW(copy.c_str())};
        Check("two copies of the file are two modules",
              modules[0] && modules[1] && modules[0] != modules[1]);
        win32::ComPtr<IDispatch> controls[2];
        HWND editors[2] = {};
        for (int i = 0; i < 2; i++) {
            controls[i] = CreateFrom(modules[i]);
            if (!controls[i]) return Check("each makes a control", false);
            SetText(*controls[i], L"UserPath", dataPath);
            Check("each opens a window", Refresh(*controls[i], 2, 0) == S_OK);
            editors[i] = GetActiveWindow();
        }
        Check("of its own", editors[0] && editors[1] && editors[0] != editors[1]);
        for (const HWND editor : editors) {
            const HWND box = FindChild(editor, L"txtTaskTitle");
            SetActiveWindow(editor);
            SetFocus(box);
            PostMessageW(box, WM_KEYDOWN, VK_TAB, 0);
            PumpWaiting();
            Check("a key moves the focus in the window that it is for",
                  GetFocus() != box && IsChild(editor, GetFocus()));
        }
        SendMessageW(editors[0], WM_CLOSE, 0, 0);
        PumpWaiting();
        Check("closing one leaves the other", !IsWindow(editors[0]) && IsWindow(editors[1]));
        SendMessageW(editors[1], WM_CLOSE, 0, 0);
        PumpWaiting();
        for (auto& control : controls) control.Reset();
        for (const HMODULE module : modules) {
            const auto ask = reinterpret_cast<HRESULT(WINAPI*)()>(
                reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
            Check("and each may be unloaded", ask() == S_OK);
            FreeLibrary(module);
        }
    });
}

// A host may let go of the file while a window stands whose procedure is in it.
void StayLoadedWithAWindow(const std::string& dataPath, const std::filesystem::path& file) {
    RunOnThread([&] {
        constexpr wchar_t kCopy[] = L"zv_Task_held.ocx";
        const auto copy = std::filesystem::path(win32::ToWide(dataPath)).parent_path() / kCopy;
        std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
        const HMODULE module = LoadLibraryW(copy.c_str());
        auto control = module ? CreateFrom(module) : win32::ComPtr<IDispatch>();
        if (!control) return Check("a file that is let go makes a control", false);
        SetText(*control, L"UserPath", dataPath);
        Refresh(*control, 2, 0);
        const HWND editor = FindNamed(GetCurrentThreadId(), L"frmTaskSet");
        control.Reset();
        FreeLibrary(module);
        const bool stays = editor && GetModuleHandleW(kCopy);
        Check("a file that is let go stays while its window stands", stays);
        if (!stays) return;
        SendMessageW(editor, WM_CLOSE, 0, 0);
        PumpWaiting();
        Check("the window works still", !IsWindow(editor));
        // As the system asks that holds it.
        const HMODULE again = LoadLibraryW(copy.c_str());
        const auto ask = reinterpret_cast<HRESULT(WINAPI*)()>(
            reinterpret_cast<void*>(GetProcAddress(again, "DllCanUnloadNow")));
        Check("without a window it may go", ask() == S_OK);
        FreeLibrary(again);
        Check("and goes", !GetModuleHandleW(kCopy));
    });
}

// The card view asks for the password of a module before it is shown.
void SetPassword(const std::string& dataPath) {
    store::ado::AdoOpener opener;
    store::ConnectionSettings settings;
    settings.dataPath = dataPath;
    const auto connection = opener.Open(settings);
    connection->Execute("delete from tSysFunc where model_Name='mnuCardLimited'");
    connection->Execute(
        "insert into tSysFunc(SerialNo,model_Name,Model_Name_0,password,NoUse_) values"
        "(1,'mnuCardLimited','甲','Secret',0)");
    connection->Close();
}

}  // namespace

int Run(const std::wstring& database, const std::wstring& control) {
    const std::string dataPath = win32::ToUtf8(database);
    RunOnThread([&] { SetPassword(dataPath); });
    ServeThreads(dataPath);
    LeaveStrangersAlone(dataPath);
    LoadTwoCopies(dataPath, control);
    StayLoadedWithAWindow(dataPath, control);
    PlayAll(dataPath);
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}

}  // namespace zv::death

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::fputs("zvDeath DATABASE CONTROL\n", stderr);
        return 2;
    }
    try {
        return zv::death::Run(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::printf("FAIL %s\n0 passed, 1 failed\n", error.what());
        return 1;
    }
}

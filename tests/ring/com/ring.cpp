#include "ring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cwchar>

#include "e2e/container/container.h"
#include "live_heap.h"

namespace zv::ring::com {

namespace {

constexpr int kLongSeconds = 600;
constexpr int kShares = 10;
constexpr UINT kCloserMilliseconds = 10;
constexpr DWORD kToolMilliseconds = 120'000;

int Setting(const wchar_t* name, int otherwise) {
    wchar_t text[32];
    const DWORD length = GetEnvironmentVariableW(name, text, 32);
    return length == 0 || length >= 32 ? otherwise
                                       : static_cast<int>(std::wcstol(text, nullptr, 10));
}

std::wstring FolderOfControl() {
    const std::wstring& path = container::File().path;
    return path.substr(0, path.find_last_of(L'\\'));
}

char currentAct[256] = "the beginning";

LONG WINAPI SayWhere(EXCEPTION_POINTERS* facts) {
    std::printf("CRASH %08lx in: %s\n", facts->ExceptionRecord->ExceptionCode, currentAct);
    std::fflush(stdout);
    // A debugger that came now would take a minute.
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

std::atomic<unsigned> acts{0};

// A call that never returns would hold up whoever runs the tests without a word of which it is.
DWORD WINAPI Watch(void*) {
    constexpr DWORD kPatience = 60'000;
    for (unsigned seen = acts;; seen = acts) {
        Sleep(kPatience);
        if (acts != seen || acts == 0) continue;
        std::printf("HANGS in: %s\n", currentAct);
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), 4);
    }
}

std::wstring& DatabasePath() {
    static std::wstring path;
    return path;
}

int Run(std::wstring command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return -1;
    }
    DWORD code = 1;
    if (WaitForSingleObject(process.hProcess, kToolMilliseconds) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.hProcess, &code);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

// A database and the component that opens it, registered as before once the tests are over.
class Workplace final : public testing::Environment {
 public:
    void SetUp() override {
        SetUnhandledExceptionFilter(&SayWhere);
        CloseHandle(CreateThread(nullptr, 0, &Watch, nullptr, 0, nullptr));
        CLSID id;
        wasRegistered_ = SUCCEEDED(CLSIDFromProgID(L"zv_Host.Opener", &id));
        ASSERT_EQ(Host("DllRegisterServer"), S_OK);
        wchar_t folder[MAX_PATH];
        ASSERT_NE(GetTempPathW(MAX_PATH, folder), 0u);
        DatabasePath() =
            std::wstring(folder) + L"zvRing" + std::to_wstring(GetCurrentProcessId()) + L".db";
        // One of a program of the same number that broke off.
        DeleteDatabase();
        ASSERT_EQ(Run(L"\"" + FolderOfControl() + L"\\zvdb.exe\" sample \"" + DatabasePath() +
                      L"\" --items 40 --cards 10 --plans 4"),
                  0);
    }
    void TearDown() override {
        DeleteDatabase();
        EXPECT_EQ(Host(wasRegistered_ ? "DllRegisterServer" : "DllUnregisterServer"), S_OK);
    }

 private:
    static void DeleteDatabase() {
        for (const wchar_t* ending : {L"", L"-wal", L"-shm"}) {
            DeleteFileW((DatabasePath() + ending).c_str());
        }
    }
    static HRESULT Host(const char* function) {
        static const HMODULE file = LoadLibraryW((FolderOfControl() + L"\\zv_Host.dll").c_str());
        const auto call = file ? reinterpret_cast<HRESULT(WINAPI*)()>(
                                     reinterpret_cast<void*>(GetProcAddress(file, function)))
                               : nullptr;
        return call ? call() : E_FAIL;
    }
    bool wasRegistered_ = false;
};

[[maybe_unused]] const auto* const g_workplace = testing::AddGlobalTestEnvironment(new Workplace);

bool IsOfControl(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return std::wcscmp(name, L"zv.Form") == 0 || std::wcscmp(name, L"#32770") == 0;
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    if (IsOfControl(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

// A box with the answers yes and no has nothing to close it with.
void AskToClose(HWND window) {
    if (!IsWindowEnabled(window)) return;
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    if (std::wcscmp(name, L"#32770") == 0) PostMessageW(window, WM_COMMAND, IDNO, 0);
    PostMessageW(window, WM_CLOSE, 0, 0);
}

void CALLBACK CloseAll(HWND, UINT, UINT_PTR, DWORD) {
    for (const HWND window : ControlWindows()) {
        if (IsWindowVisible(window)) AskToClose(window);
    }
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    CountChild(window, count);
    EnumChildWindows(window, CountChild, count);
    return TRUE;
}

// The table of the process's own objects, which has no name in the headers: it counts where the
// system's function always says 0.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
};

const GdiEntry* GdiTable() {
#ifdef _WIN64
    const auto block = __readgsqword(0x60);
    constexpr std::size_t kTable = 0xF8;
#else
    const auto block = __readfsdword(0x30);
    constexpr std::size_t kTable = 0x94;
#endif
    return *reinterpret_cast<const GdiEntry* const*>(block + kTable);
}

int GdiObjects() {
    const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (counted != 0) return static_cast<int>(counted);
    constexpr int kEntries = 0x4000;
    const GdiEntry* const table = GdiTable();
    if (!table) return 0;
    return static_cast<int>(std::count_if(table, table + kEntries,
                                          [](const GdiEntry& entry) { return entry.type != 0; }));
}

int SystemHandles() {
    DWORD counted = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &counted) && counted != 0) {
        return static_cast<int>(counted);
    }
    // Where none are counted, a new one takes the first place that is free.
    const HANDLE next = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(next);
    return static_cast<int>(reinterpret_cast<std::uintptr_t>(next) / 4);
}

}  // namespace

Random::Random() : engine_(static_cast<std::uint64_t>(Setting(L"ZV_SEED", 1))) {}

std::size_t Random::Below(std::size_t count) {
    return static_cast<std::size_t>(engine_() % count);
}

bool IsLong() {
    return Setting(L"ZV_LONG", 0) != 0;
}

Rounds::Rounds(int count)
    : left_(count),
      end_(Clock::now() +
           std::chrono::seconds(IsLong() ? Setting(L"ZV_SECONDS", kLongSeconds) / kShares : 0)) {}

bool Rounds::Next() {
    return left_-- > 0 || Clock::now() < end_;
}

void Now(const std::string& act) {
    ++acts;
    std::snprintf(currentAct, sizeof currentAct, "%s", act.c_str());
}

std::vector<HWND> ControlWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

bool CloseWindows() {
    constexpr int kTries = 400;
    for (int i = 0; i < kTries; i++) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        const auto windows = ControlWindows();
        if (windows.empty()) return true;
        for (const HWND window : windows) AskToClose(window);
        if (i > 2) Sleep(5);
    }
    return false;
}

Closer::Closer() : timer_(SetTimer(nullptr, 0, kCloserMilliseconds, &CloseAll)) {}

Closer::~Closer() {
    KillTimer(nullptr, timer_);
}

void SetDatabase(IDispatch& control) {
    container::Put(control, L"SQLData", win32::Variant(std::int16_t{0}));
    container::Put(control, L"UserPath", win32::Variant(DatabasePath().c_str()));
    container::Put(control, L"UserName", win32::Variant("张三"));
    container::Put(control, L"Password", win32::Variant("0"));
    container::Put(control, L"Language", win32::Variant(std::int16_t{0}));
}

Census Take() {
    Census census;
    census.gdi = GdiObjects();
    EnumWindows(CountWindow, reinterpret_cast<LPARAM>(&census.windows));
    for (HWND window = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, nullptr); window;
         window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) {
        CountWindow(window, reinterpret_cast<LPARAM>(&census.windows));
    }
    census.handles = SystemHandles();
    census.heap = test::LiveHeap();
    return census;
}

}  // namespace zv::ring::com

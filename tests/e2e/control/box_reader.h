// Reads and closes message boxes, as a user does that nobody waits for.
#pragma once

#include <windows.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include "base/win32/wide.h"

namespace zv {

/// Every message box of this process is read and closed as long as this lives.
class BoxReader {
 public:
    BoxReader() : thread_([this] { Run(); }) {}
    ~BoxReader() {
        stop_ = true;
        thread_.join();
    }
    BoxReader(const BoxReader&) = delete;
    BoxReader& operator=(const BoxReader&) = delete;

    /// Titles and texts of the boxes since the last call.
    std::string Take() {
        const std::scoped_lock lock(mutex_);
        return std::exchange(texts_, {});
    }

 private:
    static std::wstring TextOf(HWND window) {
        wchar_t text[2048];
        const int length = GetWindowTextW(window, text, ARRAYSIZE(text));
        return std::wstring(text, static_cast<std::size_t>(length));
    }
    static BOOL CALLBACK Visit(HWND window, LPARAM self) {
        wchar_t name[16];
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        GetClassNameW(window, name, ARRAYSIZE(name));
        if (process == GetCurrentProcessId() && std::wstring(name) == L"#32770" &&
            IsWindowVisible(window)) {
            constexpr int kTextOfABox = 65535;
            const std::wstring text =
                TextOf(window) + L"\n" + TextOf(GetDlgItem(window, kTextOfABox));
            reinterpret_cast<BoxReader*>(self)->Keep(win32::ToUtf8(text));
            PostMessageW(window, WM_COMMAND, IDOK, 0);
        }
        return TRUE;
    }
    void Keep(const std::string& text) {
        const std::scoped_lock lock(mutex_);
        texts_ += text + "\n";
    }
    void Run() {
        while (!stop_) {
            EnumWindows(Visit, reinterpret_cast<LPARAM>(this));
            Sleep(10);
        }
    }

    std::mutex mutex_;
    std::string texts_;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

}  // namespace zv

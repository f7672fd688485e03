#include "windows_by_name.h"

#include <cwchar>
#include <stdexcept>

namespace zv::outside {

std::string Narrow(const std::wstring& text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                         nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(), size,
                        nullptr, nullptr);
    return result;
}

std::wstring Wide(const std::string& text) {
    const int size =
        MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                        size);
    return result;
}

std::wstring NameOf(HWND window) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(GetPropW(window, L"zv.Name")));
    wchar_t name[256] = {};
    if (!atom || !GlobalGetAtomNameW(atom, name, 256)) return {};
    return name;
}

std::wstring TextOf(HWND window) {
    DWORD_PTR length = 0;
    if (!SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, 5000, &length)) {
        return {};
    }
    std::wstring text(length + 1, L'\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                        SMTO_ABORTIFHUNG, 5000, &copied);
    text.resize(copied);
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[128] = {};
    GetClassNameW(window, name, 128);
    return name;
}

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

bool IsNamed(HWND window, const std::wstring& name) {
    if (NameOf(window) == name) return true;
    std::wstring caption = TextOf(window);
    std::erase(caption, L'&');
    return ClassOf(window) == L"Button" && caption == name;
}

}  // namespace

DWORD ProcessOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
    wchar_t only[16] = {};
    if (GetEnvironmentVariableW(L"ZV_PROCESS", only, 16) > 0) {
        const DWORD process = std::wcstoul(only, nullptr, 10);
        std::erase_if(windows, [&](HWND window) { return ProcessOf(window) != process; });
    }
    return windows;
}

bool IsCalled(HWND window, const std::wstring& name) {
    return IsWindowVisible(window) &&
           (NameOf(window) == name || TextOf(window).find(name) != std::wstring::npos);
}

HWND FindTop(const std::wstring& name) {
    for (const HWND window : TopLevelWindows()) {
        if (IsCalled(window, name)) return window;
    }
    return nullptr;
}

HWND FindPath(const std::wstring& path) {
    const std::size_t point = path.find(L'.');
    const HWND top = FindTop(path.substr(0, point));
    if (!top) throw std::runtime_error("no window " + Narrow(path.substr(0, point)));
    if (point == std::wstring::npos) return top;
    std::vector<HWND> children;
    EnumChildWindows(top, Collect, reinterpret_cast<LPARAM>(&children));
    for (const HWND child : children) {
        if (IsNamed(child, path.substr(point + 1))) return child;
    }
    throw std::runtime_error("no control " + Narrow(path));
}

}  // namespace zv::outside

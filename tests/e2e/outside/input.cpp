#include "input.h"

#include <map>
#include <stdexcept>
#include <vector>

#include "windows_by_name.h"

namespace zv::outside {
namespace {

// Some time between one event and the next, as between those of a quick user.
constexpr DWORD kPauseMs = 10;

void Send(INPUT input) {
    if (SendInput(1, &input, sizeof input) != 1) throw std::runtime_error("the input is refused");
    Sleep(kPauseMs);
}

void SendKey(WORD key, wchar_t character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    Send(input);
}

WORD KeyOf(const std::wstring& name) {
    static const std::map<std::wstring, WORD> keys{
        {L"Enter", VK_RETURN},  {L"Tab", VK_TAB},      {L"Escape", VK_ESCAPE},
        {L"Space", VK_SPACE},   {L"Up", VK_UP},        {L"Down", VK_DOWN},
        {L"Left", VK_LEFT},     {L"Right", VK_RIGHT},  {L"PageUp", VK_PRIOR},
        {L"PageDown", VK_NEXT}, {L"Home", VK_HOME},    {L"End", VK_END},
        {L"Delete", VK_DELETE}, {L"Apps", VK_APPS},    {L"F10", VK_F10},
        {L"Shift", VK_SHIFT},   {L"Ctrl", VK_CONTROL}, {L"Alt", VK_MENU}};
    if (const auto known = keys.find(name); known != keys.end()) return known->second;
    if (name.size() == 1) return LOBYTE(VkKeyScanW(name.front()));
    throw std::runtime_error("no key " + Narrow(name));
}

void SendMouse(DWORD flags, POINT at = {}) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = at.x;
    input.mi.dy = at.y;
    input.mi.dwFlags = flags;
    Send(input);
}

}  // namespace

void Write(const std::wstring& text) {
    for (const wchar_t unit : text) {
        SendKey(0, unit, KEYEVENTF_UNICODE);
        SendKey(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

void PressKey(const std::wstring& name) {
    std::vector<WORD> keys;
    std::size_t begin = 0;
    for (std::size_t plus; (plus = name.find(L'+', begin)) != std::wstring::npos;
         begin = plus + 1) {
        keys.push_back(KeyOf(name.substr(begin, plus - begin)));
    }
    keys.push_back(KeyOf(name.substr(begin)));
    for (const WORD key : keys) SendKey(key, 0, 0);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) SendKey(*key, 0, KEYEVENTF_KEYUP);
}

void ClickScreen(POINT at, MouseButton button) {
    // The unit is the 65536th part of the screen.
    const auto part = [](LONG place, int whole) {
        return static_cast<LONG>((65536LL * place + whole - 1) / whole);
    };
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, {part(at.x, GetSystemMetrics(SM_CXSCREEN)),
                                                        part(at.y, GetSystemMetrics(SM_CYSCREEN))});
    const bool left = button == MouseButton::Left;
    SendMouse(left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
    SendMouse(left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

HWND FocusWindow() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
    return GetGUIThreadInfo(thread, &info) ? info.hwndFocus : nullptr;
}

}  // namespace zv::outside

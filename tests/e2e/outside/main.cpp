// zvOutside: works the windows of another process as a macro tool or a screen reader would, by
// nothing but messages. One command a call:
//
//   list                       visible windows: name, class, title
//   wait PATH SECONDS          until the window or control is there
//   gone PATH SECONDS          until it is not
//   visible PATH               whether it can be seen, pages in front of it considered
//   text PATH | settext PATH TEXT
//   click PATH                 presses a button, check box or option
//   checked PATH               0 or 1
//   pick PATH POSITION         a row of a combo box
//   tab PATH POSITION          a tab
//   tree PATH                  every node, a line each, indented by depth
//   node PATH PART             clicks the first node whose text holds PART
//   message                    text of the message box that is open
//   press ID                   its button (1 OK, 2 Cancel, 6 Yes, 7 No)
//   place PATH                 on the screen, WIDTHxHEIGHT+LEFT+TOP
//   extent                     of all visible windows together, WIDTHxHEIGHT
//   processes WINDOW           numbers of the processes that have such a window
//   close PATH
//
// The commands below use the keyboard and the mouse; they reach the window in the foreground.
//
//   mouse PATH                 a click in the middle of a window or control
//   mouse PATH X Y             at a point of it
//   keys KEY...                presses keys one after the other (input.h)
//   write TEXT                 types a text
//   focus                      name of the control that has the keyboard
//   held                       those of Shift, Ctrl and Alt that are down
//   date PATH                  what a date picker holds, YYYY-MM-DD
//   right PATH [X Y]           as mouse, with the right button
//   mousenode PATH PART        as node, with the mouse
//   rightnode PATH PART        with its right button
//   mousetab PATH POSITION     as tab, with the mouse
//   menu                       whether a menu is open
//   image PATH PART            number of the picture of such a node, and of the one for a selected
//   rows PATH                  every row of a grid, its columns apart by tabs
//
// With the environment variable ZV_PROCESS it sees the windows of that process alone.
//
// PATH is WINDOW or WINDOW.CONTROL. Prints UTF-8; exit status 1 with a reason when it cannot.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <functional>
#include <map>
#include <stdexcept>
#include <utility>

#include "input.h"
#include "remote_memory.h"
#include "windows_by_name.h"

namespace zv::outside {
namespace {

using Arguments = std::vector<std::wstring>;

constexpr DWORD kAnswerMs = 20000;

LRESULT Ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) {
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutW(window, message, w, l, SMTO_ABORTIFHUNG, kAnswerMs, &result)) {
        throw std::runtime_error("the window does not answer");
    }
    return static_cast<LRESULT>(result);
}

void Print(const std::wstring& line) {
    std::printf("%s\n", Narrow(line).c_str());
}

bool Exists(const std::wstring& path) {
    try {
        FindPath(path);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

void WaitUntil(const std::wstring& seconds, const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(_wtoi(seconds.c_str())) * 1000;
    while (!condition()) {
        if (GetTickCount64() > end) throw std::runtime_error("waited in vain");
        Sleep(50);
    }
}

// A node's text as it was written: trees draw no tabs, so each is shown as four blanks that do not
// break.
std::wstring NodeText(HWND tree, LPARAM item) {
    constexpr std::size_t kUnits = 512;
    RemoteMemory memory(tree, sizeof(TVITEMW) + kUnits * sizeof(wchar_t));
    TVITEMW request{};
    request.mask = TVIF_TEXT | TVIF_HANDLE;
    request.hItem = reinterpret_cast<HTREEITEM>(item);
    request.pszText = reinterpret_cast<wchar_t*>(memory.Address(sizeof(TVITEMW)));
    request.cchTextMax = kUnits;
    memory.Write(request);
    Ask(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()));
    wchar_t text[kUnits] = {};
    memory.ReadBytes(text, sizeof text, sizeof(TVITEMW));
    text[kUnits - 1] = 0;
    static const std::wstring kShownTab(4, L'\u00A0');
    std::wstring written = text;
    for (std::size_t at = 0; (at = written.find(kShownTab, at)) != std::wstring::npos; at++) {
        written.replace(at, kShownTab.size(), 1, L'\t');
    }
    return written;
}

// Calls `visit` for each node in display order until it answers true.
bool Walk(HWND tree, LPARAM item, int depth, const std::function<bool(LPARAM, int)>& visit) {
    for (; item; item = Ask(tree, TVM_GETNEXTITEM, TVGN_NEXT, item)) {
        if (visit(item, depth)) return true;
        if (Walk(tree, Ask(tree, TVM_GETNEXTITEM, TVGN_CHILD, item), depth + 1, visit)) return true;
    }
    return false;
}

void ClickAt(HWND window, const RECT& place) {
    const LPARAM at = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(window, WM_LBUTTONUP, 0, at);
}

void ClickAtWithMouse(HWND window, const RECT& place, MouseButton button) {
    POINT at{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    ClientToScreen(window, &at);
    ClickScreen(at, button);
}

LPARAM FindNode(HWND tree, const std::wstring& part) {
    LPARAM found = 0;
    Walk(tree, Ask(tree, TVM_GETNEXTITEM, TVGN_ROOT), 0, [&](LPARAM item, int) {
        if (NodeText(tree, item).find(part) == std::wstring::npos) return false;
        found = item;
        return true;
    });
    if (!found) throw std::runtime_error("no such node");
    return found;
}

void PrintImage(const Arguments& a) {
    const HWND tree = FindPath(a.at(0));
    RemoteMemory memory(tree, sizeof(TVITEMW));
    TVITEMW request{};
    request.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_HANDLE;
    request.hItem = reinterpret_cast<HTREEITEM>(FindNode(tree, a.at(1)));
    memory.Write(request);
    Ask(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()));
    const auto item = memory.Read<TVITEMW>();
    Print(std::to_wstring(item.iImage) + L" " + std::to_wstring(item.iSelectedImage));
}

// Place in the tree's window of the first node whose text holds `part`, which is then in view.
RECT PlaceOfNode(HWND tree, const std::wstring& part) {
    const LPARAM found = FindNode(tree, part);
    Ask(tree, TVM_ENSUREVISIBLE, 0, found);
    RemoteMemory memory(tree, sizeof(RECT));
    memory.Write(found);
    Ask(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(memory.Address()));
    return memory.Read<RECT>();
}

RECT PlaceOfTab(HWND tabs, const std::wstring& position) {
    RemoteMemory memory(tabs, sizeof(RECT));
    if (!Ask(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(_wtoi(position.c_str())),
             reinterpret_cast<LPARAM>(memory.Address()))) {
        throw std::runtime_error("no such tab");
    }
    return memory.Read<RECT>();
}

void ClickNode(const Arguments& a) {
    const HWND tree = FindPath(a.at(0));
    ClickAt(tree, PlaceOfNode(tree, a.at(1)));
}

void ClickNodeWithMouse(const Arguments& a, MouseButton button) {
    const HWND tree = FindPath(a.at(0));
    ClickAtWithMouse(tree, PlaceOfNode(tree, a.at(1)), button);
}

void SelectTab(const Arguments& a) {
    const HWND tabs = FindPath(a.at(0));
    ClickAt(tabs, PlaceOfTab(tabs, a.at(1)));
}

void SelectTabWithMouse(const Arguments& a) {
    const HWND tabs = FindPath(a.at(0));
    ClickAtWithMouse(tabs, PlaceOfTab(tabs, a.at(1)), MouseButton::Left);
}

void PrintRows(const Arguments& a) {
    constexpr std::size_t kUnits = 260;
    const HWND grid = FindPath(a.at(0));
    const HWND header = reinterpret_cast<HWND>(Ask(grid, LVM_GETHEADER));
    const auto columns = static_cast<int>(Ask(header, HDM_GETITEMCOUNT));
    const LRESULT rows = Ask(grid, LVM_GETITEMCOUNT);
    RemoteMemory memory(grid, sizeof(LVITEMW) + kUnits * sizeof(wchar_t));
    for (LRESULT row = 0; row < rows; row++) {
        std::wstring line;
        for (int column = 0; column < columns; column++) {
            LVITEMW request{};
            request.iSubItem = column;
            request.pszText = reinterpret_cast<wchar_t*>(memory.Address(sizeof(LVITEMW)));
            request.cchTextMax = kUnits;
            memory.Write(request);
            Ask(grid, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                reinterpret_cast<LPARAM>(memory.Address()));
            wchar_t text[kUnits] = {};
            memory.ReadBytes(text, sizeof text, sizeof(LVITEMW));
            text[kUnits - 1] = 0;
            if (column > 0) line += L'\t';
            line += text;
        }
        Print(line);
    }
}

void PickRow(const Arguments& a) {
    const HWND combo = FindPath(a.at(0));
    Ask(combo, CB_SETCURSEL, static_cast<WPARAM>(_wtoi(a.at(1).c_str())));
    PostMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

HWND OpenMessageBox() {
    for (const HWND window : TopLevelWindows()) {
        if (IsWindowVisible(window) && ClassOf(window) == L"#32770") return window;
    }
    throw std::runtime_error("no message box is open");
}

// A box that is not yet ready for keys gets no keys yet: they would reach the window before it.
void PrintProcesses(const Arguments& a) {
    for (const HWND window : TopLevelWindows()) {
        if (IsCalled(window, a.at(0))) Print(std::to_wstring(ProcessOf(window)));
    }
}

void PrintMessage(const Arguments&) {
    const HWND box = OpenMessageBox();
    if (!IsChild(box, FocusWindow())) throw std::runtime_error("the box has no keyboard yet");
    Print(TextOf(GetDlgItem(box, 65535)));
}

// Keys that stay down by mistake change what the others mean.
void PrintHeldKeys(const Arguments&) {
    constexpr std::pair<int, const wchar_t*> kKeys[] = {
        {VK_SHIFT, L"Shift"}, {VK_CONTROL, L"Ctrl"}, {VK_MENU, L"Alt"}};
    for (const auto& [key, name] : kKeys) {
        if (GetAsyncKeyState(key) < 0) Print(name);
    }
}

void FindOpenMenu(const Arguments&) {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    if (!menu || !IsWindowVisible(menu)) throw std::runtime_error("no menu is open");
}

void ClickWithMouse(const Arguments& a, MouseButton button) {
    RECT place;
    GetWindowRect(FindPath(a.at(0)), &place);
    POINT at{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    if (a.size() > 1) {
        at = {place.left + _wtoi(a.at(1).c_str()), place.top + _wtoi(a.at(2).c_str())};
    }
    ClickScreen(at, button);
}

void PrintDate(const Arguments& a) {
    const HWND picker = FindPath(a.at(0));
    RemoteMemory memory(picker, sizeof(SYSTEMTIME));
    Ask(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(memory.Address()));
    const auto time = memory.Read<SYSTEMTIME>();
    wchar_t text[32];
    swprintf(text, 32, L"%04d-%02d-%02d", time.wYear, time.wMonth, time.wDay);
    Print(text);
}

void PrintPlace(const Arguments& a) {
    RECT place;
    GetWindowRect(FindPath(a.at(0)), &place);
    wchar_t text[64];
    swprintf(text, 64, L"%ldx%ld+%ld+%ld", place.right - place.left, place.bottom - place.top,
             place.left, place.top);
    Print(text);
}

void PrintExtent(const Arguments&) {
    RECT extent{};
    for (const HWND window : TopLevelWindows()) {
        RECT place;
        if (!IsWindowVisible(window) || !GetWindowRect(window, &place)) continue;
        UnionRect(&extent, &extent, &place);
    }
    Print(std::to_wstring(extent.right - extent.left) + L"x" +
          std::to_wstring(extent.bottom - extent.top));
}

const std::map<std::wstring, std::function<void(const Arguments&)>>& Commands() {
    static const std::map<std::wstring, std::function<void(const Arguments&)>> commands{
        {L"list",
         [](const Arguments&) {
             for (const HWND window : TopLevelWindows()) {
                 if (!IsWindowVisible(window)) continue;
                 Print(NameOf(window) + L"|" + ClassOf(window) + L"|" + TextOf(window));
             }
         }},
        {L"wait", [](const Arguments& a) { WaitUntil(a.at(1), [&] { return Exists(a.at(0)); }); }},
        {L"gone", [](const Arguments& a) { WaitUntil(a.at(1), [&] { return !Exists(a.at(0)); }); }},
        {L"visible",
         [](const Arguments& a) {
             if (!IsWindowVisible(FindPath(a.at(0)))) throw std::runtime_error("not visible");
         }},
        {L"text", [](const Arguments& a) { Print(TextOf(FindPath(a.at(0)))); }},
        {L"settext",
         [](const Arguments& a) {
             Ask(FindPath(a.at(0)), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(a.at(1).c_str()));
         }},
        {L"click", [](const Arguments& a) { PostMessageW(FindPath(a.at(0)), BM_CLICK, 0, 0); }},
        {L"processes", PrintProcesses},
        {L"checked",
         [](const Arguments& a) { Print(std::to_wstring(Ask(FindPath(a.at(0)), BM_GETCHECK))); }},
        {L"pick", PickRow},
        {L"tab", SelectTab},
        {L"tree",
         [](const Arguments& a) {
             const HWND tree = FindPath(a.at(0));
             Walk(tree, Ask(tree, TVM_GETNEXTITEM, TVGN_ROOT), 0, [&](LPARAM item, int depth) {
                 Print(std::wstring(static_cast<std::size_t>(depth) * 2, L' ') +
                       NodeText(tree, item));
                 return false;
             });
         }},
        {L"node", ClickNode},
        {L"message", PrintMessage},
        {L"press",
         [](const Arguments& a) {
             PostMessageW(OpenMessageBox(), WM_COMMAND, static_cast<WPARAM>(_wtoi(a.at(0).c_str())),
                          0);
         }},
        {L"mouse", [](const Arguments& a) { ClickWithMouse(a, MouseButton::Left); }},
        {L"right", [](const Arguments& a) { ClickWithMouse(a, MouseButton::Right); }},
        {L"mousenode", [](const Arguments& a) { ClickNodeWithMouse(a, MouseButton::Left); }},
        {L"rightnode", [](const Arguments& a) { ClickNodeWithMouse(a, MouseButton::Right); }},
        {L"mousetab", SelectTabWithMouse},
        {L"image", PrintImage},
        {L"menu", FindOpenMenu},
        {L"rows", PrintRows},
        {L"keys",
         [](const Arguments& a) {
             a.at(0);
             for (const std::wstring& key : a) PressKey(key);
         }},
        {L"write", [](const Arguments& a) { Write(a.at(0)); }},
        {L"focus",
         [](const Arguments&) {
             const HWND window = FocusWindow();
             if (!window) throw std::runtime_error("nothing has the keyboard");
             // The entry of a combo box is a window in it.
             const std::wstring name = NameOf(window);
             Print(name.empty() ? NameOf(GetParent(window)) : name);
         }},
        {L"held", PrintHeldKeys},
        {L"date", PrintDate},
        {L"place", PrintPlace},
        {L"extent", PrintExtent},
        {L"close", [](const Arguments& a) { PostMessageW(FindPath(a.at(0)), WM_CLOSE, 0, 0); }},
    };
    return commands;
}

int Run(const Arguments& words) {
    const auto command = words.empty() ? Commands().end() : Commands().find(words.front());
    if (command == Commands().end()) {
        std::fprintf(stderr, "unknown command\n");
        return 2;
    }
    try {
        command->second(Arguments(words.begin() + 1, words.end()));
        return 0;
    } catch (const std::out_of_range&) {
        std::fprintf(stderr, "a word is missing\n");
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

}  // namespace
}  // namespace zv::outside

int wmain(int argc, wchar_t** argv) {
    return zv::outside::Run(zv::outside::Arguments(argv + 1, argv + argc));
}

#include "cases.h"

#include <commctrl.h>

#include <memory>

#include "base/win32/variant.h"
#include "store/ado/calls.h"

namespace zv::death {
namespace {

constexpr double kPatience = 20;

HWND AwaitNamed(DWORD thread, const wchar_t* name) {
    HWND found = nullptr;
    Wait(kPatience, [&] { return (found = FindNamed(thread, name)) != nullptr; });
    return found;
}

HWND AwaitDialog(DWORD thread) {
    HWND found = nullptr;
    Wait(kPatience, [&] { return (found = FindDialog(thread)) != nullptr; });
    return found;
}

void Press(HWND form, const wchar_t* button) {
    const HWND control = FindChild(form, button);
    if (control) PostMessageW(control, BM_CLICK, 0, 0);
}

UINT FindEntry(HMENU menu, const std::wstring& begin) {
    for (int at = 0; at < GetMenuItemCount(menu); at++) {
        if (const HMENU below = GetSubMenu(menu, at)) {
            if (const UINT found = FindEntry(below, begin)) return found;
            continue;
        }
        wchar_t caption[128] = L"";
        GetMenuStringW(menu, static_cast<UINT>(at), caption, 128, MF_BYPOSITION);
        if (std::wstring(caption).starts_with(begin)) return GetMenuItemID(menu, at);
    }
    return 0;
}

HWND OpenQuery(DWORD thread) {
    const HWND main = AwaitNamed(thread, L"frmTaskMain");
    if (!main) return nullptr;
    PostMessageW(main, WM_COMMAND, FindEntry(GetMenu(main), L"查询任务"), 0);
    return AwaitNamed(thread, L"frmAsk");
}

HWND OpenMessageBox(DWORD thread) {
    const HWND editor = AwaitNamed(thread, L"frmTaskSet");
    if (!editor) return nullptr;
    Press(editor, L"cmdOK");
    return AwaitDialog(thread);
}

// In the list that the plan editor opens: three modal windows above each other.
HWND OpenNested(DWORD thread) {
    const HWND editor = AwaitNamed(thread, L"frmTaskSet");
    if (!editor) return nullptr;
    Press(editor, L"cmdSetMan");
    return AwaitNamed(thread, L"frmList");
}

HWND OpenFileDialog(DWORD thread) {
    const HWND main = AwaitNamed(thread, L"frmTaskMain");
    const HWND tabs = main ? FindChild(main, L"SSTab1") : nullptr;
    if (!tabs) return nullptr;
    SendMessageW(tabs, TCM_SETCURSEL, 3, 0);
    NMHDR header{tabs, static_cast<UINT_PTR>(GetDlgCtrlID(tabs)), static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageW(main, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    Press(main, L"cmdAccess");
    return AwaitDialog(thread);
}

HWND OpenMenu(DWORD thread) {
    const HWND main = AwaitNamed(thread, L"frmTaskMain");
    const HWND picture = main ? FindChild(main, L"picImage") : nullptr;
    if (!picture) return nullptr;
    constexpr int kSpotTwips = 0x1E3C;
    const HDC screen = GetDC(nullptr);
    const int spot = kSpotTwips * GetDeviceCaps(screen, LOGPIXELSY) / 1440;
    ReleaseDC(nullptr, screen);
    PostMessageW(picture, WM_MOUSEMOVE, 0, MAKELPARAM(3, spot));
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const bool open = Wait(kPatience, [&] {
        return GetGUIThreadInfo(thread, &info) && (info.flags & GUI_INMENUMODE);
    });
    return open ? main : nullptr;
}

HWND OpenPrinters(DWORD thread) {
    const HWND preview = AwaitNamed(thread, L"frmPreview");
    if (!preview) return nullptr;
    Press(preview, L"cmdPrint");
    return AwaitDialog(thread);
}

HRESULT PrintOut(IDispatch& component) {
    store::ado::Member printOut(L"PrintOut");
    try {
        store::ado::Call(component, printOut);
        return S_OK;
    } catch (const RuntimeError& error) {
        return static_cast<HRESULT>(error.Number());
    }
}

// The printers' dialog, which the system shows above the preview of the report component.
Case Printing() {
    constexpr HRESULT kShownAlready = 400;
    const auto component = std::make_shared<win32::ComPtr<IDispatch>>();
    Case one{L"the printers' dialog", 0, &OpenPrinters, true};
    one.call = [component](const std::string&) -> HRESULT {
        CLSID id;
        if (FAILED(CLSIDFromProgID(L"zvPrint_ADO.zvPrint", &id)) ||
            FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                    component->PutVoid()))) {
            return E_FAIL;
        }
        SetText(**component, L"ReportName", "zvTask01");
        SetText(**component, L"Title", "Preview");
        const HRESULT result = PrintOut(**component);
        component->Reset();
        return result;
    };
    one.meanwhile = [component] { return PrintOut(**component) == kShownAlready; };
    return one;
}

}  // namespace

std::vector<Case> Cases() {
    const auto named = [](const wchar_t* name) {
        return [name](DWORD thread) { return AwaitNamed(thread, name); };
    };
    return {
        {L"the task manager", 1, named(L"frmTaskMain")},
        {L"the plan editor", 2, named(L"frmTaskSet")},
        {L"the staff list", 3, named(L"frmList")},
        {L"the completion dialog", 5, named(L"frmTaskDone")},
        {L"the query window", 1, &OpenQuery, true},
        {L"a list above the plan editor", 2, &OpenNested, true},
        {L"a message box", 2, &OpenMessageBox, true},
        {L"an input box", 9, &AwaitDialog},
        {L"a file dialog", 1, &OpenFileDialog, true},
        {L"a menu", 1, &OpenMenu},
        Printing(),
    };
}

}  // namespace zv::death

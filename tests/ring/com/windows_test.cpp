// Strangers in the process: windows with the names of ours, and messages to ours that nobody of
// ours has sent.
#include <gtest/gtest.h>

#include <windowsx.h>

#include <commctrl.h>

#include "ring.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

BOOL CALLBACK CollectChild(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> AllWindows() {
    std::vector<HWND> all = ControlWindows();
    for (const HWND window : ControlWindows()) {
        EnumChildWindows(window, &CollectChild, reinterpret_cast<LPARAM>(&all));
    }
    return all;
}

class Strangers : public testing::Test {
 protected:
    void SetUp() override { SetDatabase(*stage.Borrow<IDispatch>()); }
    void TearDown() override { EXPECT_EQ(stage.End(), ""); }
    void Open(LONG mode) {
        EXPECT_EQ(stage.Borrow<ITask>(zv::com::kInterfaceId)->refresh(mode, 0), S_OK);
    }
    Stage stage;
    Random random;
};

TEST_F(Strangers, WithOurNamesAreLeftAlone) {
    std::vector<HWND> strangers;
    for (const wchar_t* name : {L"zv.Form", L"zvTask.DesignView"}) {
        WNDCLASSW description{};
        description.lpfnWndProc = &DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = name;
        ASSERT_NE(RegisterClassW(&description), 0);
        const HWND window = CreateWindowW(name, L"stranger", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                          GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(window, nullptr);
        SetPropW(window, L"zv.Name", reinterpret_cast<HANDLE>(std::uintptr_t{0xC123}));
        strangers.push_back(window);
    }
    stage.Borrow<IOleObject>()->SetClientSite(&stage.site);
    EXPECT_EQ(stage.Borrow<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &stage.site, 0,
                                                 stage.window, nullptr),
              S_OK);
    EXPECT_EQ(stage.Borrow<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    Open(1);
    EXPECT_GT(ControlWindows().size(), 1u);
    for (const HWND window : strangers) {
        EXPECT_TRUE(IsWindow(window));
        RemovePropW(window, L"zv.Name");
        DestroyWindow(window);
    }
    EXPECT_TRUE(CloseWindows());
    UnregisterClassW(L"zv.Form", GetModuleHandleW(nullptr));
    UnregisterClassW(L"zvTask.DesignView", GetModuleHandleW(nullptr));
}

TEST_F(Strangers, SendWhatTheyLike) {
    // Modal loops of the system, and messages that are the creation or the end of a window, are no
    // stranger's to send.
    constexpr UINT kRegistered = 0xC000;
    const UINT messages[] = {
        WM_COMMAND,      WM_NOTIFY,        WM_TIMER,           WM_HSCROLL,      WM_VSCROLL,
        WM_USER,         WM_MENUCOMMAND,   WM_PARENTNOTIFY,    WM_ENTERIDLE,    WM_SIZE,
        WM_MOUSEWHEEL,   WM_CTLCOLOREDIT,  WM_CTLCOLORSTATIC,  WM_APP,          WM_APP + 1,
        WM_APP + 2,      WM_APP + 10,      WM_APP + 77,        kRegistered + 1, kRegistered + 300,
        WM_THEMECHANGED, WM_INITMENUPOPUP, WM_UNINITMENUPOPUP, WM_ACTIVATE,     WM_CHANGEUISTATE};
    const HWND stranger =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    const Closer closer;
    int sent = 0;
    for (Rounds rounds(6); rounds.Next();) {
        for (const LONG mode : {1L, 9L, 0L}) {
            Open(mode);
            const std::vector<HWND> windows = AllWindows();
            for (int i = 0; i < 300 && !windows.empty(); i++) {
                const HWND target = random.Of(windows);
                if (!IsWindow(target)) continue;
                UINT message = random.Of(messages);
                // The system's own controls take pointers in their private messages.
                wchar_t name[16] = L"";
                GetClassNameW(target, name, 16);
                const bool isOurs = std::wcscmp(name, L"zv.Form") == 0;
                if (!isOurs && (message >= WM_USER && message < WM_APP)) message = WM_COMMAND;
                NMHDR header{stranger, static_cast<UINT_PTR>(random.Below(2000)),
                             static_cast<UINT>(0 - random.Below(900))};
                WPARAM w =
                    random.OneIn(2) ? random.Below(5000) : static_cast<WPARAM>(random.Bits());
                LPARAM l = random.OneIn(3) ? 0 : reinterpret_cast<LPARAM>(stranger);
                if (message == WM_NOTIFY) l = reinterpret_cast<LPARAM>(&header);
                if (message == WM_TIMER) l = 0;
                if (message == WM_MOUSEWHEEL) l = static_cast<LPARAM>(random.Below(0xFFFFFFFF));
                if (message == WM_ACTIVATE) w = random.Below(3);
                if (message == WM_CTLCOLOREDIT || message == WM_CTLCOLORSTATIC) w = 0;
                Now("message " + std::to_string(message) + " w " + std::to_string(w));
                SendMessageW(target, message, w, l);
                sent++;
            }
            EXPECT_TRUE(CloseWindows());
        }
    }
    std::printf("%d messages\n", sent);
    DestroyWindow(stranger);
}

}  // namespace
}  // namespace zv::ring::com

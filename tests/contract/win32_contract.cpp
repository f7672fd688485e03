// What only real windows promise: names that are found from outside, keys in a foreign message
// loop, boxes of the system, windows that are unloaded in the middle of their own messages.
#include <windows.h>

#include <array>

#include "base/text.h"
#include "driver/win32/played_backend.h"
#include "driver/win32/standing_look.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/label.h"
#include "forms/menu.h"
#include "forms/monitors.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "forms/win32/display.h"
#include "forms/win32/handles.h"
#include "forms/win32/input_box.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_backend.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;
namespace win32 = forms::win32;
using win32::Win32Backend;

struct NativeForm : TestForm {
    explicit NativeForm(WindowSystem& windows, const std::string& name = "frmTest")
        : TestForm(windows, name) {
        images.Add("task1", Icon());
        tvwTask.SetImageList(&images);
        mnuPopup.SetVisible(false);
        txtNotes.SetMultiLine(true);
        tvwTask.Add(TreeView::kNone, "A1", "任务", "task1");
        tvwTask.Add(TreeView::kNone, "A2", "客户", "task1");
        cmdOK.SetCaption("确定(&O)");
        for (int i = 0; i < 3; i++) optType[i].SetCaption("(&" + std::to_string(i) + ")");
    }
    ImageList images;
    MenuItem mnuPopup{*this, "mnuPopup", nullptr, "弹出"};
    MenuItem mnuEntry{*this, "mnuEntry", &mnuPopup, "完毕"};
    Timer Timer1{*this, "Timer1", 20};
    TextBox txtTitle{*this, "txtTitle"};
    TextBox txtNotes{*this, "txtNotes"};
    ControlArray<CheckBox> chkType{*this, "chkType", nullptr, 2};
    ControlArray<OptionButton> optType{*this, "optType", nullptr, 3};
    TreeView tvwTask{*this, "tvwTask"};
    DatePicker dtpDate{*this, "dtpDate"};
    CommandButton cmdOK{*this, "cmdOK"};
    CommandButton cmdOther{*this, "cmdOther"};
    Label lblText{*this, "lblText"};
};

class Native : public Contract {
 protected:
    Native() : form(windows_.Create<NativeForm>()) { Arrange(form); }
    driver::PlayedBackend& backend() {
        return static_cast<driver::PlayedBackend&>(stand_->GetBackend());
    }
    HWND Handle(const Form& of) { return backend().Handle(of); }
    HWND Named(const std::string& name) {
        Search search{win32::ToWide(name), nullptr};
        EnumChildWindows(Handle(form), &Native::Visit, reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    static void Press(WPARAM key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }

    NativeForm& form;

 private:
    struct Search {
        std::wstring name;
        HWND found;
    };
    static BOOL CALLBACK Visit(HWND window, LPARAM data) {
        auto& search = *reinterpret_cast<Search*>(data);
        const auto atom =
            static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(window, L"zv.Name")));
        std::array<wchar_t, 256> name{};
        if (!atom || !GlobalGetAtomNameW(atom, name.data(), static_cast<int>(name.size()))) {
            return TRUE;
        }
        if (search.name != name.data()) return TRUE;
        search.found = window;
        return FALSE;
    }
};

// A loop as any host has it.
void RunHostLoop() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

struct ClockForm : TestForm {
    explicit ClockForm(WindowSystem& windows) : TestForm(windows, "frmClock") {
        SetComesByItself(true);
    }
    CommandButton cmdOK{*this, "cmdOK"};
    int changes = 0;

 protected:
    void Form_ClockChange() override { changes++; }
};

TEST_F(Native, AChangedClockAndAnEndOfSleepReachAWindowThatNobodySees) {
    auto& clock = windows_.Create<ClockForm>();
    Arrange(clock);
    clock.LoadUnseen();
    SendMessageW(Handle(clock), WM_TIMECHANGE, 0, 0);
    EXPECT_EQ(clock.changes, 1);
    // A user who wakes the machine is reported behind the waking itself.
    SendMessageW(Handle(clock), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    SendMessageW(Handle(clock), WM_POWERBROADCAST, PBT_APMRESUMESUSPEND, 0);
    SendMessageW(Handle(clock), WM_POWERBROADCAST, PBT_APMPOWERSTATUSCHANGE, 0);
    EXPECT_EQ(clock.changes, 2);
}

TEST_F(Native, OneThatComesByItselfStandsAboveAndLeavesTheKeyboardWhereItIs) {
    form.Show(false);
    form.FocusTo(form.txtTitle);
    RunHostLoop();
    const HWND focus = GetFocus();
    auto& clock = windows_.Create<ClockForm>();
    Arrange(clock);
    clock.Surface();
    RunHostLoop();
    EXPECT_TRUE(IsWindowVisible(Handle(clock)));
    EXPECT_EQ(GetFocus(), focus);
    EXPECT_EQ(GetActiveWindow(), Handle(form));
    EXPECT_NE(GetWindowLongPtrW(Handle(clock), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(Native, ControlsAreFoundByTheirNamesFromOutside) {
    form.Show(false);
    wchar_t className[64] = L"";
    GetClassNameW(Named("txtTitle"), className, 64);
    EXPECT_STREQ(className, L"Edit");
    EXPECT_NE(Named("chkType(1)"), nullptr);
    EXPECT_NE(Named("chkType(0)"), Named("chkType(1)"));
    EXPECT_EQ(Named("chkType"), nullptr);
}

TEST_F(Native, TabMovesTheFocusInALoopThatKnowsNothingOfTheWindow) {
    form.Show(false);
    ASSERT_EQ(GetFocus(), Named("txtTitle"));
    Press(VK_TAB);
    RunHostLoop();
    EXPECT_EQ(GetFocus(), Named("txtNotes"));
    EXPECT_TRUE(form.txtNotes.HasFocus());
}

TEST_F(Native, TypedCharactersArriveInSuchALoop) {
    form.Show(false);
    Press('A');
    RunHostLoop();
    EXPECT_EQ(text::ToLower(form.txtTitle.Text()), "a");
}

TEST_F(Native, EnterAndEscapePressTheirButtons) {
    form.defaultButton = &form.cmdOK;
    form.cancelButton = &form.cmdOther;
    form.cmdOK.onClick = [this] { events_.push_back("ok"); };
    form.cmdOther.onClick = [this] { events_.push_back("other"); };
    form.Show(false);
    Press(VK_RETURN);
    RunHostLoop();
    Press(VK_ESCAPE);
    RunHostLoop();
    EXPECT_EQ(events_, (std::vector<std::string>{"ok", "other"}));
    events_.clear();
    form.cmdOther.SetFocus();
    Press(VK_RETURN);
    RunHostLoop();
    EXPECT_EQ(events_, std::vector<std::string>{"other"}) << "the focused button takes Enter";
}

TEST_F(Native, EnterBreaksTheLineInABoxOfSeveral) {
    form.defaultButton = &form.cmdOK;
    form.cmdOK.onClick = [this] { events_.push_back("ok"); };
    form.Show(false);
    form.txtNotes.SetFocus();
    Press(VK_RETURN);
    RunHostLoop();
    EXPECT_EQ(form.txtNotes.Text(), "\r\n");
    EXPECT_TRUE(events_.empty());
}

TEST_F(Native, EnterBelongsToTheInputMethodWhileItComposes) {
    form.defaultButton = &form.cmdOK;
    form.cmdOK.onClick = [this] { events_.push_back("ok"); };
    form.txtTitle.onKeyDown = [this](KeyEvent&) { events_.push_back("key"); };
    form.Show(false);
    Press(VK_PROCESSKEY);
    RunHostLoop();
    SendMessageW(GetFocus(), WM_IME_STARTCOMPOSITION, 0, 0);
    Press(VK_RETURN);
    RunHostLoop();
    EXPECT_TRUE(events_.empty());
    SendMessageW(GetFocus(), WM_IME_ENDCOMPOSITION, 0, 0);
    Press(VK_RETURN);
    RunHostLoop();
    EXPECT_EQ(events_, (std::vector<std::string>{"key", "ok"}));
}

TEST_F(Native, ArrowsMoveAmongTheOptionsOfAGroup) {
    form.Show(false);
    form.optType[0].SetFocus();
    EXPECT_FALSE(form.optType[0].Value()) << "the focus alone chooses nothing";
    Press(VK_DOWN);
    RunHostLoop();
    EXPECT_TRUE(form.optType[1].Value());
    EXPECT_EQ(GetFocus(), Named("optType(1)"));
    for (int step = 0; step < 2; step++) {
        Press(VK_UP);
        RunHostLoop();
    }
    EXPECT_TRUE(form.optType[2].Value());
}

TEST_F(Native, AnAccessKeyPressesItsButton) {
    form.cmdOK.onClick = [this] { events_.push_back("ok"); };
    form.Show(false);
    PostMessageW(GetFocus(), WM_SYSCHAR, 'o', 1 << 29);
    RunHostLoop();
    EXPECT_EQ(events_, std::vector<std::string>{"ok"});
    EXPECT_TRUE(form.cmdOK.HasFocus());
}

TEST_F(Native, ALabelWithoutMnemonicShowsItsCaptionAsItStands) {
    form.lblText.SetCaption("甲&乙");
    form.Show(false);
    const auto isLiteral = [this] {
        return (GetWindowLongPtrW(Named("lblText"), GWL_STYLE) & SS_NOPREFIX) != 0;
    };
    EXPECT_FALSE(isLiteral());
    form.lblText.SetUseMnemonic(false);
    EXPECT_TRUE(isLiteral());
    form.lblText.SetUseMnemonic(true);
    EXPECT_FALSE(isLiteral());
}

TEST_F(Native, AKeyThatAHandlerSwallowsDoesNothingMore) {
    form.txtTitle.onKeyDown = [](KeyEvent& event) { event.code = 0; };
    form.Show(false);
    Press('A');
    Press(VK_RETURN);
    RunHostLoop();
    EXPECT_EQ(form.txtTitle.Text(), "");
}

TEST_F(Native, ANodeClickMayUnloadTheWindow) {
    form.tvwTask.onNodeClick = [this](int) {
        form.Unload();
        events_.push_back("unloaded");
    };
    form.Show(false);
    driver().ClickNode(form.tvwTask, "A2");
    EXPECT_EQ(events_, std::vector<std::string>{"unloaded"});
    EXPECT_TRUE(windows_.Windows().empty());
    EXPECT_EQ(Win32Backend::OpenWindows(), 0);
}

TEST_F(Native, AKeyHandlerMayUnloadTheWindow) {
    form.txtTitle.onKeyDown = [this](KeyEvent&) { form.Unload(); };
    form.Show(false);
    driver().Key(form.txtTitle, key::kEnter);
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Native, AMenuThatPopsUpIsClosedByTheDriverAndChosenFromLater) {
    form.tvwTask.onMouseDown = [this](const MouseEvent& event) {
        form.PopupMenu(form.mnuPopup, event.x / kTwipsPerUnit, event.y / kTwipsPerUnit);
        events_.push_back("closed");
    };
    form.mnuEntry.onClick = [this] { events_.push_back("chosen"); };
    form.Show(false);
    driver().RightClickNode(form.tvwTask, "A2");
    EXPECT_EQ(form.LastPopup(), "mnuPopup");
    driver().Choose(form.mnuEntry);
    EXPECT_EQ(events_, (std::vector<std::string>{"closed", "chosen"}));
}

TEST_F(Native, AnEntryOfAMenuThatPopsUpIsChosenByKeyboard) {
    form.tvwTask.onMouseDown = [this](const MouseEvent&) { form.PopupMenu(form.mnuPopup, 0, 0); };
    form.mnuEntry.onClick = [this] { events_.push_back("chosen"); };
    form.Show(false);
    backend().onMenuIdle = [this] {
        backend().onMenuIdle = nullptr;
        PostMessageW(Handle(form), WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(Handle(form), WM_KEYDOWN, VK_RETURN, 1);
    };
    driver().RightClickNode(form.tvwTask, "A2");
    EXPECT_EQ(events_, std::vector<std::string>{"chosen"});
}

TEST_F(Native, AMenuWhoseWindowGoesEndsAtOnce) {
    form.tvwTask.onMouseDown = [this](const MouseEvent&) { form.PopupMenu(form.mnuPopup, 0, 0); };
    form.Show(false);
    stand_->SetMenuLoop([this] { driver().Close(form); });
    const DWORD start = GetTickCount();
    driver().RightClickNode(form.tvwTask, "A2");
    EXPECT_TRUE(windows_.Windows().empty());
    EXPECT_LT(GetTickCount() - start, 10000U);
}

TEST_F(Native, TheMenuKeyOpensTheMenuOfTheSelectedNode) {
    form.tvwTask.onMouseDown = [this](const MouseEvent& event) {
        events_.push_back(event.button == MouseButton::Right ? "right" : "other");
        EXPECT_GT(event.y, 0);
    };
    form.Show(false);
    driver().ClickNode(form.tvwTask, "A2");
    SendMessageW(Named("tvwTask"), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Named("tvwTask")), -1);
    EXPECT_EQ(events_, std::vector<std::string>{"right"});
}

TEST_F(Native, ATimerTicksByItself) {
    int ticks = 0;
    form.Timer1.onTimer = [&] {
        if (++ticks == 2) form.Timer1.SetRunning(false);
    };
    form.Show(false);
    form.Timer1.SetRunning(true);
    const DWORD start = GetTickCount();
    while (ticks < 2 && GetTickCount() - start < 5000) {
        RunHostLoop();
        Sleep(5);
    }
    EXPECT_EQ(ticks, 2);
}

TEST_F(Native, OpenWindowsKeepTheModuleLoaded) {
    EXPECT_EQ(Win32Backend::OpenWindows(), 0);
    form.Show(false);
    EXPECT_EQ(Win32Backend::OpenWindows(), 1);
    form.Hide();
    EXPECT_EQ(Win32Backend::OpenWindows(), 1);
    form.Unload();
    EXPECT_EQ(Win32Backend::OpenWindows(), 0);
}

TEST_F(Native, AModalWindowDisablesTheHostAndGivesTheFocusBack) {
    const HWND host = CreateWindowW(L"EDIT", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                    200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(host);
    SetFocus(host);
    ASSERT_EQ(GetFocus(), host);
    stand_->SetModalLoop([&](Form& modal) {
        EXPECT_FALSE(IsWindowEnabled(host));
        EXPECT_EQ(GetActiveWindow(), Handle(modal));
        driver().Close(modal);
    });
    windows_.FromHost([&] { form.Show(true); });
    EXPECT_TRUE(IsWindowEnabled(host));
    EXPECT_EQ(GetFocus(), host);
    DestroyWindow(host);
}

TEST_F(Native, TheOwnModalLoopEndsWithTheWindowAndPassesTheEndOfTheProgramOn) {
    stand_->SetModalLoop(nullptr);
    form.cmdOK.onClick = [this] { form.Unload(); };
    form.onActivate = [this] { PostMessageW(Named("cmdOK"), BM_CLICK, 0, 0); };
    windows_.FromHost([&] { form.Show(true); });
    EXPECT_TRUE(windows_.Windows().empty());

    auto& second = windows_.Create<NativeForm>("frmSecond");
    Arrange(second);
    second.onActivate = [] { PostQuitMessage(7); };
    windows_.FromHost([&] { second.Show(true); });
    EXPECT_FALSE(second.IsShown());
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(Native, TheWorkAreaIsThatOfTheMonitorWhereTheUserWorks) {
    form.Show(false);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ASSERT_TRUE(GetMonitorInfoW(MonitorFromWindow(Handle(form), MONITOR_DEFAULTTONULL), &monitor));
    const Rect area = backend().WorkArea();
    const auto pixels = [](int units) { return MulDiv(units, win32::SystemDpi(), 96); };
    EXPECT_NEAR(pixels(area.left), monitor.rcWork.left, 1);
    EXPECT_NEAR(pixels(area.top), monitor.rcWork.top, 1);
    EXPECT_NEAR(pixels(area.width), monitor.rcWork.right - monitor.rcWork.left, 1);
    EXPECT_NEAR(pixels(area.height), monitor.rcWork.bottom - monitor.rcWork.top, 1);
}

TEST_F(Native, AWindowIsNotSmallerThanItsMinimum) {
    form.SetSizable(true);
    form.SetMinimumClientSize({320, 200});
    form.Show(false);
    SetWindowPos(Handle(form), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(form.ClientSize(), (Size{320, 200}));
}

// Plays the user at a box of the system, which runs a loop of its own.
class BoxUser {
 public:
    explicit BoxUser(std::function<void(HWND)> act) : act_(std::move(act)) {
        current = this;
        timer_ = SetTimer(nullptr, 0, 50, &BoxUser::OnTimer);
    }
    ~BoxUser() {
        KillTimer(nullptr, timer_);
        current = nullptr;
    }
    BoxUser(const BoxUser&) = delete;
    BoxUser& operator=(const BoxUser&) = delete;

 private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        HWND box = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &BoxUser::Visit, reinterpret_cast<LPARAM>(&box));
        if (!box || !current->act_) return;
        std::exchange(current->act_, nullptr)(box);
    }
    static BOOL CALLBACK Visit(HWND window, LPARAM data) {
        wchar_t className[16] = L"";
        GetClassNameW(window, className, 16);
        if (lstrcmpW(className, L"#32770") != 0 || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(data) = window;
        return FALSE;
    }
    static inline BoxUser* current = nullptr;
    std::function<void(HWND)> act_;
    UINT_PTR timer_ = 0;
};

class Boxes : public testing::Test {
 protected:
    Win32Backend backend{GetModuleHandleW(nullptr)};
    WindowSystem windows{backend};
};

TEST_F(Boxes, AMessageBoxShowsItsTextAndReturnsTheAnswer) {
    std::string text;
    const BoxUser user([&](HWND box) {
        text = win32::WindowText(GetDlgItem(box, 65535));
        PostMessageW(box, WM_COMMAND, IDNO, 0);
    });
    EXPECT_EQ(windows.ShowMessage("確認?", box::kYesNo + box::kQuestion, "任务"), Answer::No);
    EXPECT_EQ(text, "確認?");
}

TEST_F(Boxes, AnInputBoxReturnsTheTextAndHidesASecret) {
    bool hidden = false;
    const BoxUser user([&](HWND box) {
        const HWND entry = GetDlgItem(box, win32::InputBox::kEntryId);
        hidden = GetWindowLongPtrW(entry, GWL_STYLE) & ES_PASSWORD;
        SetWindowTextW(entry, L"密码");
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    EXPECT_EQ(windows.AskText("?", true), "密码");
    EXPECT_TRUE(hidden);
}

TEST_F(Boxes, AnInputBoxThatIsCancelledReturnsNothing) {
    const BoxUser user([](HWND box) { PostMessageW(box, WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(windows.AskText("?"), std::nullopt);
}

class BoxesOnMonitors : public testing::Test {
 protected:
    // Shows a box over a window on the left monitor, which is unplugged while it stands.
    void Unplug(const std::function<void()>& ask, const std::function<void(HWND)>& finish) {
        backend.SetMonitors(both);
        windows.title = "标题";
        auto& form = windows.Create<TestForm>();
        form.SetClientSize({600, 400});
        form.Show(false);
        const HWND window = backend.Handle(form);
        SetWindowPos(window, nullptr, -1000, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        backend.FollowScale(*backend.Find(form));
        const BoxUser user([&](HWND box) {
            // Where the system puts a message box it knows nothing of these monitors.
            SetWindowPos(box, nullptr, -900, 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
            focus = GetFocus();
            const HWND entry = GetDlgItem(box, win32::InputBox::kEntryId);
            if (entry) SetWindowTextW(entry, L"口令");
            backend.SetMonitors(rest);
            whole = LiesWhole(rest, driver::ScriptedScreens::PlaceOf(box));
            ownerWhole = LiesWhole(rest, driver::ScriptedScreens::PlaceOf(window));
            hasFocus = GetFocus() == focus && GetAncestor(focus, GA_ROOT) == box;
            finish(box);
        });
        ask();
        windows.UnloadAll();
        EXPECT_TRUE(whole);
        EXPECT_TRUE(ownerWhole);
        EXPECT_TRUE(hasFocus);
    }

    const Monitor main{{0, 0, 1280, 1024}, {0, 0, 1280, 984}};
    const Monitors both{{main, {{-1920, 0, 1920, 1200}, {-1920, 0, 1920, 1160}, 192}}};
    const Monitors rest{{main}};
    driver::PlayedBackend backend{GetModuleHandleW(nullptr), nullptr};
    WindowSystem windows{backend};
    HWND focus = nullptr;
    bool whole = false;
    bool ownerWhole = false;
    bool hasFocus = false;
};

TEST_F(BoxesOnMonitors, AMessageBoxComesToTheMonitorThatIsLeft) {
    Unplug(
        [&] { EXPECT_EQ(windows.ShowMessage("确认?", box::kYesNo + box::kQuestion), Answer::No); },
        [](HWND box) { PostMessageW(box, WM_COMMAND, IDNO, 0); });
}

TEST_F(BoxesOnMonitors, AnInputBoxTakesTheScaleOfTheMonitorThatIsLeft) {
    RECT entry{};
    Unplug([&] { EXPECT_EQ(windows.AskText("?", true), "口令"); },
           [&](HWND box) {
               GetWindowRect(GetDlgItem(box, win32::InputBox::kEntryId), &entry);
               EXPECT_EQ(driver::BoxFaults(box), std::vector<std::string>());
               PostMessageW(box, WM_COMMAND, IDOK, 0);
           });
    constexpr int kWidthInUnits = 336;
    EXPECT_EQ(entry.right - entry.left, kWidthInUnits);
}

TEST_F(Boxes, AFileDialogThatIsCancelledReturnsNothing) {
    const BoxUser user([](HWND box) { PostMessageW(box, WM_COMMAND, IDCANCEL, 0); });
    FileRequest request;
    request.filter = "Access|*.mdb|*.*|*.*";
    EXPECT_EQ(windows.ChooseFile(request), std::nullopt);
}

}  // namespace
}  // namespace zv::contract

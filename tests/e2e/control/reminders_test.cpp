// Reminders of the registered control in a compiled host: early and late bound, their events, and
// what becomes of them when the host lets go.
#include "com/ids.h"
#include "control_host.h"

namespace zv::e2e {
namespace {

using com::ITask2;

class Reminders : public ControlHost {
 protected:
    ComPtr<ITask2> Second() {
        ComPtr<ITask2> second;
        EXPECT_EQ(control->QueryInterface(com::kSecondInterfaceId, second.PutVoid()), S_OK);
        return second;
    }
    static bool IsReminding(ITask2& task) {
        VARIANT_BOOL reminding = VARIANT_FALSE;
        EXPECT_EQ(task.get_Reminding(&reminding), S_OK);
        return reminding != VARIANT_FALSE;
    }
};

TEST_F(Reminders, AreOffUntilAskedForAndEndWhenAskedFor) {
    const auto task = Second();
    ASSERT_TRUE(task);
    EXPECT_FALSE(IsReminding(*task));
    EXPECT_EQ(task->StopReminders(), S_OK);
    EXPECT_EQ(task->StartReminders(), S_OK);
    EXPECT_TRUE(IsReminding(*task));
    EXPECT_EQ(task->StartReminders(), S_OK);
    EXPECT_EQ(task->StopReminders(), S_OK);
    EXPECT_FALSE(IsReminding(*task));
    EXPECT_EQ(WindowNamed(L"frmRemind"), nullptr);
    EXPECT_EQ(task->get_Reminding(nullptr), E_POINTER);
}

TEST_F(Reminders, TheSecondInterfaceBeginsWithTheFirstAndIsTheSameObject) {
    const auto second = Second();
    ASSERT_TRUE(second);
    SHORT type = 0;
    EXPECT_EQ(second->put_AlertType(7), S_OK);
    EXPECT_EQ(second->get_AlertType(&type), S_OK);
    EXPECT_EQ(type, 7);
    ComPtr<IUnknown> one;
    ComPtr<IUnknown> other;
    control->QueryInterface(IID_IUnknown, one.PutVoid());
    second->QueryInterface(IID_IUnknown, other.PutVoid());
    EXPECT_EQ(one.Get(), other.Get());
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(control->GetTypeInfo(0, LOCALE_NEUTRAL, info.Put()), S_OK);
    Bstr name;
    ASSERT_EQ(info->GetDocumentation(com::kReminding, name.Put(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(name.Utf8(), "Reminding");
}

TEST_F(Reminders, ComeUpWithoutTheKeyboardAndAreReportedOnce) {
    const HWND host = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      200, 100, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(host);
    SetFocus(host);
    const auto task = Second();
    ASSERT_TRUE(task);
    ASSERT_EQ(task->StartReminders(), S_OK);
    const HWND window = WindowNamed(L"frmRemind");
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(IsWindowVisible(window)) << "nothing is due";
    EXPECT_EQ(GetFocus(), host);
    EXPECT_EQ(GetActiveWindow(), host);
    EXPECT_NE(GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    const Lines shown = listener.Take();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].substr(0, 14), "ReminderShown ");
    // Its user closes it: it works on unseen.
    PostMessageW(window, WM_CLOSE, 0, 0);
    PumpWhile([&] { return IsWindowVisible(window) != FALSE; });
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_TRUE(IsReminding(*task));
    EXPECT_EQ(listener.Take(), Lines{});
    EXPECT_EQ(task->StopReminders(), S_OK);
    EXPECT_EQ(listener.Take(), Lines{"WindowClosed frmRemind"});
    DestroyWindow(host);
}

TEST_F(Reminders, EndWithTheLastControlOfTheProcess) {
    {
        const auto task = Second();
        ASSERT_TRUE(task);
        ASSERT_EQ(task->StartReminders(), S_OK);
    }
    ComPtr<IDispatch> other = Create();
    Disconnect(first);
    control.Reset();
    EXPECT_NE(WindowNamed(L"frmRemind"), nullptr);
    other.Reset();
    EXPECT_EQ(WindowNamed(L"frmRemind"), nullptr);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"zv_Task.ocx"), nullptr);
}

TEST_F(Reminders, OutliveTheWindowBeforeWhichTheyCameUp) {
    const HWND host = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      200, 100, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(host);
    const auto task = Second();
    ASSERT_TRUE(task);
    ASSERT_EQ(task->StartReminders(), S_OK);
    const HWND window = WindowNamed(L"frmRemind");
    ASSERT_TRUE(IsWindowVisible(window));
    DestroyWindow(host);
    const DWORD end = GetTickCount() + 200;
    PumpWhile([end] { return GetTickCount() < end; });
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(IsReminding(*task));
    // Nor does somebody who destroys it from outside leave anything that goes on looking.
    DestroyWindow(window);
    EXPECT_EQ(WindowNamed(L"frmRemind"), nullptr);
    EXPECT_FALSE(IsReminding(*task));
    EXPECT_EQ(task->StartReminders(), S_OK);
    EXPECT_TRUE(IsWindowVisible(WindowNamed(L"frmRemind")));
    EXPECT_EQ(task->StopReminders(), S_OK);
}

TEST_F(Reminders, EndWithTheSessionWithoutAQuestion) {
    const auto task = Second();
    ASSERT_TRUE(task);
    ASSERT_EQ(task->StartReminders(), S_OK);
    const HWND window = WindowNamed(L"frmRemind");
    ASSERT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(SendMessageW(window, WM_QUERYENDSESSION, 0, 0));
    SendMessageW(window, WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(WindowNamed(L"frmRemind"), nullptr);
    EXPECT_FALSE(IsReminding(*task));
    EXPECT_EQ(task->StopReminders(), S_OK);
}

TEST_F(Reminders, AListenerMayLetGoOfTheControlInside) {
    listener.next = [this] { control.Reset(); };
    const auto task = Second();
    ASSERT_TRUE(task);
    EXPECT_EQ(task->StartReminders(), S_OK);
    EXPECT_EQ(task->StopReminders(), S_OK);
}

TEST_F(Reminders, AStoreThatIsAwayIsToldInNoBox) {
    Put(L"UserPath", Variant(L"Z:\\nowhere\\away.db"));
    const auto task = Second();
    ASSERT_TRUE(task);
    EXPECT_EQ(task->StartReminders(), S_OK);
    EXPECT_TRUE(IsReminding(*task));
    const HWND window = WindowNamed(L"frmRemind");
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(listener.Take(), Lines{});
    EXPECT_EQ(task->StopReminders(), S_OK);
}

}  // namespace
}  // namespace zv::e2e

// The registered control with listeners to its events that call back, fail, leave and let go.
#include <cstdlib>
#include <utility>

#include "control_host.h"

namespace zv::e2e {
namespace {

/// A container that makes the control a part of itself.
class Aggregate final : public IUnknown {
 public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid != IID_IUnknown) return part->QueryInterface(iid, object);
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    ULONG references = 1;
    ComPtr<IUnknown> part;
};

class Events : public ControlHost {};

TEST_F(Events, ReachAListenerOnceEach) {
    EXPECT_EQ(Mark(1, 2), S_OK);
    EXPECT_EQ(Mark(2, 1), S_OK);
    EXPECT_EQ(listener.Take(), (Lines{"ItemDone 1 2", "ItemDone 2 1"}));
}

TEST_F(Events, AListenerMayCallBack) {
    listener.next = [this] { EXPECT_EQ(Mark(4, 2), S_OK); };
    EXPECT_EQ(Mark(3, 1), S_OK);
    EXPECT_EQ(listener.Take(), (Lines{"ItemDone 3 1", "ItemDone 4 2"}));
}

TEST_F(Events, AListenerThatFailsHarmsNobody) {
    Listener second;
    const DWORD cookie = Connect(*control, second);
    listener.answer = DISP_E_EXCEPTION;
    EXPECT_EQ(Mark(1, 1), S_OK);
    EXPECT_EQ(listener.Take(), Lines{"ItemDone 1 1"});
    EXPECT_EQ(second.Take(), Lines{"ItemDone 1 1"});
    Disconnect(cookie);
}

TEST_F(Events, AListenerMayDisconnectItselfAndAnotherInsideAnEvent) {
    Listener second;
    const DWORD cookie = Connect(*control, second);
    listener.next = [&] {
        Disconnect(first);
        Disconnect(cookie);
    };
    EXPECT_EQ(Mark(1, 2), S_OK);
    EXPECT_EQ(Mark(1, 1), S_OK);
    EXPECT_EQ(listener.Take(), Lines{"ItemDone 1 2"});
    EXPECT_EQ(second.Take(), Lines{});
    EXPECT_EQ(second.references, 1u);
    EXPECT_EQ(listener.references, 1u);
}

TEST_F(Events, AListenerMayLetGoOfTheControl) {
    Put(L"myTaskID", Variant(std::int32_t{1}));
    Put(L"myDate", Variant(0.0));
    const ComPtr<IDispatch> called = control;
    listener.next = [this] { control.Reset(); };
    EXPECT_EQ(Refresh(kMark), S_OK);
    EXPECT_EQ(listener.Take(), Lines{"ItemDone 1 0"});
}

TEST_F(Events, WaitWhileTheContainerHoldsThemBack) {
    ComPtr<IOleControl> frozen;
    ASSERT_EQ(control->QueryInterface(IID_IOleControl, frozen.PutVoid()), S_OK);
    EXPECT_EQ(frozen->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(Mark(1, 2), S_OK);
    EXPECT_EQ(Mark(2, 2), S_OK);
    EXPECT_EQ(listener.Take(), Lines{});
    EXPECT_EQ(frozen->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(listener.Take(), (Lines{"ItemDone 1 2", "ItemDone 2 2"}));
}

TEST_F(Events, EveryControlOfTheProcessReportsThem) {
    const ComPtr<IDispatch> other = Create();
    Listener elsewhere;
    Connect(*other, elsewhere);
    EXPECT_EQ(Mark(1, 1), S_OK);
    EXPECT_EQ(listener.Take(), Lines{"ItemDone 1 1"});
    EXPECT_EQ(elsewhere.Take(), Lines{"ItemDone 1 1"});
}

TEST_F(Events, AControlThatIsPartOfAContainerReportsThem) {
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(L"zv_Task.zvTask", &id), S_OK);
    Aggregate aggregate;
    ASSERT_EQ(CoCreateInstance(id, &aggregate, CLSCTX_INPROC_SERVER, IID_IUnknown,
                               aggregate.part.PutVoid()),
              S_OK);
    Listener elsewhere;
    {
        ComPtr<IDispatch> inside;
        ASSERT_EQ(aggregate.QueryInterface(IID_IDispatch, inside.PutVoid()), S_OK);
        const DWORD cookie = Connect(*inside, elsewhere);
        const ComPtr<IDispatch> alone = std::exchange(control, inside);
        EXPECT_EQ(Mark(2, 2), S_OK);
        EXPECT_EQ(elsewhere.Take(), Lines{"ItemDone 2 2"});
        EXPECT_EQ(listener.Take(), Lines{"ItemDone 2 2"});
        EXPECT_EQ(Point(*inside)->Unadvise(cookie), S_OK);
        EXPECT_EQ(Mark(2, 1), S_OK);
        EXPECT_EQ(elsewhere.Take(), Lines{});
        control = alone;
    }
    EXPECT_EQ(aggregate.references, 1u);
    EXPECT_EQ(elsewhere.references, 1u);
    aggregate.part.Reset();
    EXPECT_EQ(listener.Take(), Lines{"ItemDone 2 1"});
}

TEST_F(Events, AWindowThatItsUserClosesIsReportedWhenNobodySeesItAnyMore) {
    EXPECT_EQ(Refresh(kManager), S_OK);
    const HWND window = WindowNamed(L"frmTaskMain");
    ASSERT_NE(window, nullptr);
    bool gone = false;
    listener.next = [&] { gone = !IsWindowVisible(window); };
    PostMessageW(window, WM_CLOSE, 0, 0);
    PumpWhile([&] { return listener.lines.empty(); });
    EXPECT_EQ(listener.Take(), Lines{"WindowClosed frmTaskMain"});
    EXPECT_TRUE(gone);
}

TEST_F(Events, AnAlertReportsHowManyItemsItShows) {
    EXPECT_EQ(Refresh(0), S_OK);
    const HWND window = WindowNamed(L"frmTaskMain");
    ASSERT_NE(window, nullptr) << "nothing is due";
    const Lines shown = listener.Take();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].substr(0, 11), "AlertShown ");
    EXPECT_GE(std::atoi(shown[0].c_str() + 11), 1);
    // A listener that opens another window inside the event.
    listener.next = [this] { EXPECT_EQ(Refresh(2), S_OK); };
    PostMessageW(window, WM_CLOSE, 0, 0);
    PumpWhile([&] { return listener.lines.empty() || !WindowNamed(L"frmTaskSet"); });
    const HWND editor = WindowNamed(L"frmTaskSet");
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(listener.Take(), Lines{"WindowClosed frmTaskMain"});
    PostMessageW(editor, WM_CLOSE, 0, 0);
    PumpWhile([&] { return listener.lines.empty(); });
    EXPECT_EQ(listener.Take(), Lines{"WindowClosed frmTaskSet"});
}

}  // namespace
}  // namespace zv::e2e

// The registered control in a host that knows nothing of resolutions: its windows are sharp, the
// host stays as it is.
#include "control_host.h"

namespace zv::e2e {
namespace {

template <typename Function>
Function User(const char* name) {
    return reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

DPI_AWARENESS AwarenessOf(DPI_AWARENESS_CONTEXT context) {
    using Awareness = DPI_AWARENESS(WINAPI*)(DPI_AWARENESS_CONTEXT);
    return User<Awareness>("GetAwarenessFromDpiAwarenessContext")(context);
}
DPI_AWARENESS AwarenessOf(HWND window) {
    using OfWindow = DPI_AWARENESS_CONTEXT(WINAPI*)(HWND);
    return AwarenessOf(User<OfWindow>("GetWindowDpiAwarenessContext")(window));
}
DPI_AWARENESS AwarenessOfThread() {
    using Present = DPI_AWARENESS_CONTEXT(WINAPI*)();
    return AwarenessOf(User<Present>("GetThreadDpiAwarenessContext")());
}

class UnawareHost : public ControlHost {
 protected:
    using SetContext = DPI_AWARENESS_CONTEXT(WINAPI*)(DPI_AWARENESS_CONTEXT);

    void SetUp() override {
        const auto set = User<SetContext>("SetThreadDpiAwarenessContext");
        if (!set) GTEST_SKIP() << "the system has no contexts of threads";
        before_ = set(DPI_AWARENESS_CONTEXT_UNAWARE);
        window = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                 200, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(window, nullptr);
        ControlHost::SetUp();
    }
    void TearDown() override {
        ControlHost::TearDown();
        if (!before_) return;
        EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
        EXPECT_EQ(AwarenessOf(window), DPI_AWARENESS_UNAWARE);
        DestroyWindow(window);
        User<SetContext>("SetThreadDpiAwarenessContext")(before_);
    }
    void Close(const wchar_t* name) {
        PostMessageW(WindowNamed(name), WM_CLOSE, 0, 0);
        PumpWhile([&] { return WindowNamed(name) != nullptr; });
        EXPECT_EQ(WindowNamed(name), nullptr);
    }

    HWND window = nullptr;

 private:
    DPI_AWARENESS_CONTEXT before_ = nullptr;
};

TEST_F(UnawareHost, HasItsOwnContextAfterEachCallWhileTheWindowIsSharp) {
    EXPECT_EQ(Refresh(kManager), S_OK);
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
    const HWND manager = WindowNamed(L"frmTaskMain");
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(AwarenessOf(manager), DPI_AWARENESS_PER_MONITOR_AWARE);
    EXPECT_EQ(AwarenessOf(window), DPI_AWARENESS_UNAWARE);
    Put(L"UserName", Variant("张三"));
    EXPECT_EQ(Refresh(kManager), S_OK);
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
    Close(L"frmTaskMain");
}

TEST_F(UnawareHost, HasItsOwnContextAfterACallThatFails) {
    EXPECT_EQ(Refresh(kManager), S_OK);
    const HRESULT refused = Invoke(
        L"refresh", DISPATCH_METHOD,
        {Variant(std::int16_t{1}).Get(), Variant(static_cast<std::int32_t>(kManager)).Get()});
    EXPECT_TRUE(FAILED(refused)) << "an open window does not become modal";
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
    Close(L"frmTaskMain");
}

TEST_F(UnawareHost, HearsEventsOfACallInItsOwnContextAndMayCallBack) {
    DPI_AWARENESS heard = DPI_AWARENESS_INVALID;
    listener.next = [&] {
        heard = AwarenessOfThread();
        EXPECT_EQ(Mark(4, 2), S_OK);
        EXPECT_EQ(AwarenessOfThread(), heard);
    };
    EXPECT_EQ(Mark(3, 1), S_OK);
    EXPECT_EQ(heard, DPI_AWARENESS_UNAWARE);
    EXPECT_EQ(listener.Take(), (Lines{"ItemDone 3 1", "ItemDone 4 2"}));
}

TEST_F(UnawareHost, HearsWhatTheUserDoesInAWindowInItsOwnContext) {
    EXPECT_EQ(Refresh(kManager), S_OK);
    DPI_AWARENESS heard = DPI_AWARENESS_INVALID;
    listener.next = [&] { heard = AwarenessOfThread(); };
    Close(L"frmTaskMain");
    EXPECT_EQ(listener.Take(), Lines{"WindowClosed frmTaskMain"});
    EXPECT_EQ(heard, DPI_AWARENESS_UNAWARE);
}

}  // namespace
}  // namespace zv::e2e

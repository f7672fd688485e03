// Thousands of lives: nothing of the system and nothing of the heap grows over the second half.
#include <gtest/gtest.h>

#include "ring.h"
#include "stage.h"

namespace zv::ring::com {
namespace {

constexpr int kLives = 10'000;
constexpr int kRefreshEach = 250;
/// Between a quarter and the end: blocks of the system's own come and go.
constexpr double kMostHeap = 64.0 * 1024;
constexpr int kMostHandles = 8;

/// What a host does from creating a control to letting it go.
void Live(int number, HWND window) {
    Now("life " + std::to_string(number));
    Trouble none;
    Troupe troupe;
    Site& site = troupe.Make<Site>(none);
    Sink& sink = troupe.Make<Sink>(none);
    site.window = window;
    ComPtr<IOleObject> object;
    ASSERT_EQ(CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                               object.PutVoid()),
              S_OK);
    object->SetClientSite(&site);
    const auto task = object.As<IDispatch>();
    container::Put(*task, L"myName", Variant("名"));
    const auto points = object.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    points->FindConnectionPoint(zv::com::kEventsId, point.Put());
    DWORD cookie = 0;
    point->Advise(sink.Identity(), &cookie);
    if (number % 10 == 0) {
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site, 0, window, nullptr);
    }
    if (number % kRefreshEach == 0) {
        SetDatabase(*task);
        const Variant mode(std::int32_t{number % (2 * kRefreshEach) == 0 ? 9 : 1});
        const Variant modal(std::int16_t{0});
        EXPECT_EQ(container::Call(*task, L"refresh", {mode.Get(), modal.Get()}).hr, S_OK);
        EXPECT_TRUE(CloseWindows());
    }
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    // Every second host forgets to disconnect.
    if (number % 2 == 0) point->Unadvise(cookie);
    point.Reset();
    object.Reset();
}

TEST(Lives, LeaveNothingBehind) {
    const HWND window =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 99, 99, nullptr, nullptr, nullptr, nullptr);
    ComPtr<IUnknown> keeper;
    const int lives = IsLong() ? 10 * kLives : kLives;
    Census middle;
    for (int i = 1; i <= lives; i++) {
        // Most of the time another control lives too; now and then the session ends with the last.
        if (i % 100 == 1) {
            keeper.Reset();
            ASSERT_EQ(container::File().canUnload(), S_OK);
            ASSERT_EQ(CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER,
                                       IID_IUnknown, keeper.PutVoid()),
                      S_OK);
        }
        Live(i, window);
        if (HasFatalFailure()) break;
        if (i == lives / 2) middle = Take();
    }
    const Census end = Take();
    std::printf("gdi %d, %d; windows %d, %d; handles %d, %d; heap %.0f, %.0f\n", middle.gdi,
                end.gdi, middle.windows, end.windows, middle.handles, end.handles, middle.heap,
                end.heap);
    EXPECT_LE(end.gdi, middle.gdi);
    EXPECT_LE(end.windows, middle.windows);
    EXPECT_LE(end.handles, middle.handles + kMostHandles);
    EXPECT_LE(end.heap, middle.heap + kMostHeap);
    keeper.Reset();
    DestroyWindow(window);
    EXPECT_EQ(NormalLife(), "");
}

}  // namespace
}  // namespace zv::ring::com

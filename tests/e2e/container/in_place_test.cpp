// The control in a window of its container.
#include "container.h"

namespace container {
namespace {

using Events = std::vector<std::string>;

class InPlaceTest : public ContainerTest {
 protected:
    void SetUp() override {
        ContainerTest::SetUp();
        site.window = CreateWindowExW(0, L"STATIC", L"form", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200,
                                      nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(site.window);
        object = As<IOleObject>();
        ASSERT_EQ(object->SetClientSite(&site), S_OK);
    }
    void TearDown() override {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
        object.Reset();
        EXPECT_FALSE(site.active);
        EXPECT_EQ(site.references, 1u);
        DestroyWindow(site.window);
        ContainerTest::TearDown();
    }
    HRESULT Verb(LONG verb) {
        return object->DoVerb(verb, nullptr, &site, 0, site.window, &site.position);
    }
    HWND Window() {
        HWND window = nullptr;
        As<IOleInPlaceObject>()->GetWindow(&window);
        return window;
    }

    Site site;
    ComPtr<IOleObject> object;
};

TEST_F(InPlaceTest, IsInvisibleAtRunTimeAndAsksForItsSiteFirst) {
    DWORD status = 0;
    ASSERT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_TRUE(status & OLEMISC_INVISIBLEATRUNTIME);
    EXPECT_TRUE(status & OLEMISC_SETCLIENTSITEFIRST);
    DWORD registered = 0;
    ASSERT_EQ(OleRegGetMiscStatus(zv::com::kClassId, DVASPECT_CONTENT, &registered), S_OK);
    EXPECT_EQ(registered, status);
}

TEST_F(InPlaceTest, ActivatesInADesignedForm) {
    ASSERT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK);
    const HWND window = Window();
    ASSERT_TRUE(window);
    EXPECT_EQ(GetParent(window), site.window);
    EXPECT_TRUE(IsWindowVisible(window));
    RECT place;
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, site.window, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(EqualRect(&place, &site.position));
    EXPECT_EQ(site.events, Events{"activate"});
    EXPECT_EQ(File().canUnload(), S_FALSE);

    const RECT moved{0, 0, 50, 40};
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&moved, &moved), S_OK);
    GetClientRect(window, &place);
    EXPECT_EQ(place.right, 50);

    ASSERT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(site.events, (Events{"activate", "deactivate"}));
}

/// How windows of the thread deal with resolutions, by functions that not every system has.
struct Dpi {
    template <typename Function>
    static Function User(const char* name) {
        return reinterpret_cast<Function>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
    }
    static DPI_AWARENESS_CONTEXT Set(DPI_AWARENESS_CONTEXT context) {
        using SetContext = DPI_AWARENESS_CONTEXT(WINAPI*)(DPI_AWARENESS_CONTEXT);
        const auto set = User<SetContext>("SetThreadDpiAwarenessContext");
        return set ? set(context) : nullptr;
    }
    static DPI_AWARENESS OfThread() {
        using Present = DPI_AWARENESS_CONTEXT(WINAPI*)();
        using Awareness = DPI_AWARENESS(WINAPI*)(DPI_AWARENESS_CONTEXT);
        return User<Awareness>("GetAwarenessFromDpiAwarenessContext")(
            User<Present>("GetThreadDpiAwarenessContext")());
    }
};

DPI_AWARENESS whileChildIsMade = DPI_AWARENESS_INVALID;

LRESULT CALLBACK WatchCreation(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND &&
        reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs->style & WS_CHILD) {
        whileChildIsMade = Dpi::OfThread();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(InPlaceTest, IsMadeInTheContextOfItsParentWhateverTheThreadHas) {
    const auto before = Dpi::Set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    if (!before) GTEST_SKIP() << "the system has no contexts of threads";
    const HWND sharp = CreateWindowExW(0, L"STATIC", L"sharp form", WS_POPUP | WS_VISIBLE, 0, 0,
                                       300, 200, nullptr, nullptr, nullptr, nullptr);
    const HWND unaware = std::exchange(site.window, sharp);
    Dpi::Set(DPI_AWARENESS_CONTEXT_UNAWARE);
    whileChildIsMade = DPI_AWARENESS_INVALID;
    const HHOOK hook = SetWindowsHookExW(WH_CBT, &WatchCreation, nullptr, GetCurrentThreadId());
    EXPECT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK);
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(whileChildIsMade, DPI_AWARENESS_PER_MONITOR_AWARE);
    EXPECT_EQ(Dpi::OfThread(), DPI_AWARENESS_UNAWARE);
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    DestroyWindow(std::exchange(site.window, unaware));
    Dpi::Set(before);
}

TEST_F(InPlaceTest, TakesAndGivesBackTheFrame) {
    ASSERT_EQ(Verb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(site.active);
    ASSERT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_FALSE(site.active);
    EXPECT_EQ(site.events, (Events{"activate", "ui activate", "ui deactivate"}));
}

TEST_F(InPlaceTest, HidesAndShowsItsWindow) {
    ASSERT_EQ(Verb(OLEIVERB_SHOW), S_OK);
    ASSERT_EQ(Verb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(IsWindowVisible(Window()));
    ASSERT_EQ(Verb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(InPlaceTest, HasNoWindowWhileTheHostRuns) {
    site.userMode = true;
    EXPECT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_FALSE(Window());
    EXPECT_EQ(site.events, Events{});
}

TEST_F(InPlaceTest, LosesItsWindowWhenTheHostStartsToRun) {
    ASSERT_EQ(Verb(OLEIVERB_SHOW), S_OK);
    site.userMode = true;
    ASSERT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
    EXPECT_FALSE(Window());
}

TEST_F(InPlaceTest, ClosingSavesWhatChanged) {
    Bag bag;
    ASSERT_EQ(As<IPersistPropertyBag>()->Load(&bag, nullptr), S_OK);
    ASSERT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(site.saves, 0);
    PutText(L"myName", "changed");
    ASSERT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(site.saves, 1);
    ASSERT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(site.saves, 1);
}

TEST_F(InPlaceTest, OffersNoVerbsToItsUser) {
    ComPtr<IEnumOLEVERB> verbs;
    EXPECT_EQ(object->EnumVerbs(verbs.Put()), OLEOBJ_E_NOVERBS);
    EXPECT_EQ(Verb(OLEIVERB_PROPERTIES), E_NOTIMPL);
}

TEST_F(InPlaceTest, HasNoMnemonics) {
    CONTROLINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(As<IOleControl>()->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel, 0);
}

TEST_F(InPlaceTest, SurvivesALostContainerWindow) {
    ASSERT_EQ(Verb(OLEIVERB_SHOW), S_OK);
    DestroyWindow(site.window);
    site.window = nullptr;
    EXPECT_FALSE(Window());
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
}

// Closed in the middle of a notification, the control ends what it began and nothing more.
TEST_F(InPlaceTest, AContainerMayCloseItInAnyCall) {
    for (const char* call : {"activate", "ui activate", "active object", "no active object",
                             "ui deactivate", "deactivate"}) {
        SCOPED_TRACE(call);
        bool closed = false;
        site.onCall = [&](const std::string& event) {
            if (closed || event != call) return;
            closed = true;
            object->Close(OLECLOSE_NOSAVE);
        };
        Verb(OLEIVERB_UIACTIVATE);
        As<IOleInPlaceObject>()->InPlaceDeactivate();
        site.onCall = nullptr;
        EXPECT_TRUE(closed);
        EXPECT_FALSE(site.active);
        object->Close(OLECLOSE_NOSAVE);
        EXPECT_EQ(Window(), nullptr);
    }
}

TEST_F(InPlaceTest, AContainerMayTakeItsSiteAwayInAnyCall) {
    for (const char* call : {"activate", "ui activate", "active object", "no active object",
                             "ui deactivate", "deactivate"}) {
        SCOPED_TRACE(call);
        site.onCall = [&](const std::string& event) {
            if (event == call) object->SetClientSite(nullptr);
        };
        Verb(OLEIVERB_UIACTIVATE);
        As<IOleInPlaceObject>()->InPlaceDeactivate();
        site.onCall = nullptr;
        EXPECT_FALSE(site.active);
        EXPECT_EQ(Window(), nullptr);
        ASSERT_EQ(object->SetClientSite(&site), S_OK);
    }
}

}  // namespace
}  // namespace container

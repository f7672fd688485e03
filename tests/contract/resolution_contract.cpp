// Windows in a program that knows nothing of resolutions, and windows whose resolution changes.
#include <windows.h>
// Behind it.
#include <commctrl.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "driver/win32/played_backend.h"
#include "forms/buttons.h"
#include "forms/grid.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "forms/win32/display.h"
#include "forms/win32/form_window.h"
#include "forms/win32/input_box.h"
#include "forms/win32/measured_texts.h"
#include "forms/win32/system_dpi.h"
#include "forms/win32/user_function.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;
namespace win32 = forms::win32;
using win32::Scale;

DPI_AWARENESS AwarenessOf(DpiContext context) {
    using Awareness = DPI_AWARENESS(WINAPI*)(DPI_AWARENESS_CONTEXT);
    static const auto awareness =
        win32::UserFunction<Awareness>("GetAwarenessFromDpiAwarenessContext");
    return awareness(static_cast<DPI_AWARENESS_CONTEXT>(const_cast<void*>(context)));
}
DPI_AWARENESS AwarenessOf(HWND window) {
    return AwarenessOf(win32::DpiContextOf(window));
}
DPI_AWARENESS AwarenessOfThread() {
    using Present = DPI_AWARENESS_CONTEXT(WINAPI*)();
    static const auto present = win32::UserFunction<Present>("GetThreadDpiAwarenessContext");
    return AwarenessOf(present());
}
bool SystemKnowsContexts() {
    return win32::UserFunction<FARPROC>("SetThreadDpiAwarenessContext") != nullptr;
}

struct SmallForm : TestForm {
    explicit SmallForm(WindowSystem& windows) : TestForm(windows) { cmdOK.SetCaption("确定(&O)"); }
    TextBox txtTitle{*this, "txtTitle"};
    CommandButton cmdOK{*this, "cmdOK"};
};

/// The thread of a program that is not aware of resolutions.
class UnawareHost : public Contract {
 protected:
    UnawareHost() : form(windows_.Create<SmallForm>()) { Arrange(form); }
    void SetUp() override {
        if (!SystemKnowsContexts()) GTEST_SKIP() << "the system has no contexts of threads";
        unaware_.emplace(thread_, DPI_AWARENESS_CONTEXT_UNAWARE);
        ASSERT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
    }
    void TearDown() override {
        if (unaware_) {
            EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
        }
        Contract::TearDown();
        unaware_.reset();
    }
    driver::PlayedBackend& backend() {
        return static_cast<driver::PlayedBackend&>(stand_->GetBackend());
    }
    HWND Handle() { return backend().Handle(form); }

    SmallForm& form;

 private:
    win32::SystemDpiThread thread_;
    std::optional<DpiScope> unaware_;
};

TEST_F(UnawareHost, AWindowAndItsControlsAreSharpAndTheThreadStaysAsItIs) {
    windows_.FromHost([&] { form.Show(false); });
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
    EXPECT_EQ(AwarenessOf(Handle()), DPI_AWARENESS_PER_MONITOR_AWARE);
    EXPECT_EQ(AwarenessOf(GetWindow(Handle(), GW_CHILD)), DPI_AWARENESS_PER_MONITOR_AWARE);
}

TEST_F(UnawareHost, AWindowIsSharpAlsoOutsideOfACallOfTheHost) {
    form.Show(false);
    EXPECT_EQ(AwarenessOf(Handle()), DPI_AWARENESS_PER_MONITOR_AWARE);
}

TEST_F(UnawareHost, AHandlerOfAWindowRunsInItsContext) {
    DPI_AWARENESS seen = DPI_AWARENESS_INVALID;
    form.cmdOK.onClick = [&] { seen = AwarenessOfThread(); };
    windows_.FromHost([&] { form.Show(false); });
    driver().Click(form.cmdOK);
    EXPECT_EQ(seen, DPI_AWARENESS_PER_MONITOR_AWARE);
}

TEST_F(UnawareHost, AnErrorOfARefusedCallLeavesTheThreadAsItIs) {
    EXPECT_THROW(windows_.FromHost([&] {
        form.Show(false);
        throw RuntimeError(ErrorNumber::Overflow);
    }),
                 RuntimeError);
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
}

DPI_AWARENESS seenByTimer = DPI_AWARENESS_INVALID;
std::function<void()> onTimer;

void CALLBACK Tick(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    seenByTimer = AwarenessOfThread();
    if (onTimer) std::exchange(onTimer, nullptr)();
}

TEST_F(UnawareHost, WhatTheHostDoesWhileAModalWindowStandsHasTheHostsContext) {
    stand_->SetModalLoop(nullptr);
    seenByTimer = DPI_AWARENESS_INVALID;
    onTimer = [&] { PostMessageW(Handle(), WM_CLOSE, 0, 0); };
    SetTimer(nullptr, 0, 20, &Tick);
    windows_.FromHost([&] { form.Show(true); });
    EXPECT_EQ(seenByTimer, DPI_AWARENESS_UNAWARE);
}

TEST_F(UnawareHost, BoxesAreSharp) {
    win32::Win32Backend real{GetModuleHandleW(nullptr)};
    WindowSystem windows{real};
    DPI_AWARENESS seen = DPI_AWARENESS_INVALID;
    const auto close = [&] {
        HWND box = FindWindowW(L"#32770", L"标题");
        seen = box ? AwarenessOf(box) : DPI_AWARENESS_INVALID;
        PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    };
    windows.title = "标题";
    onTimer = close;
    SetTimer(nullptr, 0, 100, &Tick);
    EXPECT_EQ(windows.AskText("?"), std::nullopt);
    EXPECT_EQ(seen, DPI_AWARENESS_PER_MONITOR_AWARE);
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);

    seen = DPI_AWARENESS_INVALID;
    onTimer = close;
    SetTimer(nullptr, 0, 100, &Tick);
    EXPECT_EQ(windows.ShowMessage("?", box::kOkCancel), Answer::Cancel);
    EXPECT_EQ(seen, DPI_AWARENESS_PER_MONITOR_AWARE);
    EXPECT_EQ(AwarenessOfThread(), DPI_AWARENESS_UNAWARE);
}

class Resolution : public Contract {
 protected:
    Resolution() : form(windows_.Create<SmallForm>()) {
        Arrange(form);
        form.SetSizable(true);
        form.Show(false);
        window = static_cast<driver::PlayedBackend&>(stand_->GetBackend()).Find(form);
        before = window->GetScale().Dpi();
    }
    HWND Handle() const { return window->Handle(); }
    SIZE Outer() const {
        RECT place{};
        GetWindowRect(Handle(), &place);
        return {place.right - place.left, place.bottom - place.top};
    }
    /// As the system does when the window is moved to a monitor of that resolution. Not every
    /// system gives the window another frame then, so it keeps its own.
    void MoveTo(int dpi) {
        RECT client{};
        GetClientRect(Handle(), &client);
        const SIZE outer = Outer();
        const Scale scale(dpi);
        const RECT suggested{
            20, 30, 20 + outer.cx - client.right + scale.ToPixels(form.ClientSize().width),
            30 + outer.cy - client.bottom + scale.ToPixels(form.ClientSize().height)};
        SendMessageW(Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&suggested));
        RECT taken{};
        GetWindowRect(Handle(), &taken);
        EXPECT_TRUE(EqualRect(&taken, &suggested));
    }
    RECT PlaceOf(HWND control) const {
        RECT place{};
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    int FontHeight(HWND control) const {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        return std::abs(font.lfHeight);
    }

    SmallForm& form;
    win32::FormWindow* window = nullptr;
    int before = 0;
};

TEST_F(Resolution, AWindowThatGetsAnotherOneIsScaledWithControlsAndFonts) {
    const HWND title = window->Find(form.txtTitle)->Handle();
    const Rect units = form.txtTitle.Bounds();
    const Size client = form.ClientSize();
    const int font = FontHeight(title);
    ASSERT_GT(font, 0);
    MoveTo(2 * before);
    const Scale scale(2 * before);
    EXPECT_EQ(window->GetScale().Dpi(), 2 * before);
    const RECT place = PlaceOf(title);
    const RECT wanted = scale.ToPixels(units);
    EXPECT_TRUE(EqualRect(&place, &wanted));
    EXPECT_NEAR(FontHeight(title), 2 * font, 2);
    EXPECT_EQ(form.ClientSize(), client) << "in units it is as large as it was";
    MoveTo(before);
    EXPECT_EQ(form.ClientSize(), client);
    EXPECT_EQ(FontHeight(title), font);
}

TEST_F(Resolution, TheLineOfAnEntryStandsInItsMiddle) {
    const HWND title = window->Find(form.txtTitle)->Handle();
    for (const int dpi : {before, 2 * before, 3 * before}) {
        if (dpi != before) MoveTo(dpi);
        const RECT outer = PlaceOf(title);
        RECT line{};
        GetClientRect(title, &line);
        MapWindowPoints(title, Handle(), reinterpret_cast<POINT*>(&line), 2);
        EXPECT_NEAR((line.top + line.bottom) / 2, (outer.top + outer.bottom) / 2, 2) << dpi;
        EXPECT_NEAR(line.bottom - line.top, win32::MeasureText(window->UiFont(), "国").cy, 2)
            << dpi;
    }
}

TEST_F(Resolution, TheLineOfAComboBoxStandsInItsMiddle) {
    struct WithCombo : TestForm {
        explicit WithCombo(WindowSystem& windows) : TestForm(windows, "frmCombo") {
            cboAny.Move({8, 8, 200, 23});
        }
        ComboBox cboAny{*this, "cboAny", nullptr, ComboStyle::FreeText};
    };
    auto& other = windows_.Create<WithCombo>();
    other.Show(false);
    auto* shown = static_cast<driver::PlayedBackend&>(stand_->GetBackend()).Find(other);
    const RECT suggested{20, 30, 1500, 900};
    SendMessageW(shown->Handle(), WM_DPICHANGED, MAKEWPARAM(288, 288),
                 reinterpret_cast<LPARAM>(&suggested));
    const win32::NativeControl* combo = shown->Find(other.cboAny);
    RECT outer{};
    GetWindowRect(combo->Handle(), &outer);
    RECT line{};
    GetClientRect(combo->FocusHandle(), &line);
    MapWindowPoints(combo->FocusHandle(), nullptr, reinterpret_cast<POINT*>(&line), 2);
    EXPECT_EQ(outer.bottom - outer.top, 69);
    EXPECT_NEAR((line.top + line.bottom) / 2, (outer.top + outer.bottom) / 2, 2)
        << line.top - outer.top << " " << line.bottom - outer.top;
    RECT edit{};
    GetWindowRect(combo->FocusHandle(), &edit);
    EXPECT_NEAR(edit.bottom - edit.top, 65, 2) << edit.top - outer.top;
}

TEST_F(Resolution, AWindowAsksForTheSizeThatItsContentNeedsThere) {
    const int dpi = before + before / 2;
    const Scale scale(dpi);
    SIZE size{};
    ASSERT_TRUE(SendMessageW(Handle(), win32::kGetDpiScaledSize, static_cast<WPARAM>(dpi),
                             reinterpret_cast<LPARAM>(&size)));
    const RECT outer = win32::OuterRect(
        {0, 0, scale.ToPixels(form.ClientSize().width), scale.ToPixels(form.ClientSize().height)},
        static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE)),
        static_cast<DWORD>(GetWindowLongW(Handle(), GWL_EXSTYLE)), false, dpi);
    EXPECT_EQ(size.cx, outer.right - outer.left);
    EXPECT_EQ(size.cy, outer.bottom - outer.top);
    ShowWindow(Handle(), SW_MAXIMIZE);
    EXPECT_FALSE(SendMessageW(Handle(), win32::kGetDpiScaledSize, static_cast<WPARAM>(dpi),
                              reinterpret_cast<LPARAM>(&size)));
}

TEST_F(Resolution, AWindowIsLaidOutOnceMoreByTextsOfTheNewOne) {
    const std::array<std::string, 5> texts{"任务提醒", "客戶名片", "iiiiiiiiiiiiiiiiiiii",
                                           "WWWWWWWWWWWWWWWWWWWW", "2003-03-07 10:00"};
    std::vector<int> widths;
    form.onResize = [&] {
        for (const std::string& text : texts) {
            widths.push_back(stand_->GetBackend().MeasureText(text).width);
        }
    };
    const Scale scale(before + before / 4);
    MoveTo(scale.Dpi());
    ASSERT_EQ(widths.size(), texts.size()) << "once";
    const win32::Font font = win32::CreateUiFont(scale.Dpi());
    for (std::size_t i = 0; i < texts.size(); i++) {
        EXPECT_GE(scale.ToPixels(widths[i]), win32::MeasureText(font.get(), texts[i]).cx)
            << texts[i];
    }
}

TEST(MeasuredTexts, AreMeasuredAnewWhenTheUserChoosesAnotherFont) {
    win32::MeasuredTexts texts(win32::SystemDpi());
    const LOGFONTW usual = win32::MessageFont(win32::SystemDpi());
    LOGFONTW large = usual;
    large.lfHeight *= 2;
    const SIZE size = texts.SizeOf("任务", usual);
    EXPECT_EQ(size.cx, win32::MeasureText(win32::CreateUiFont(usual).get(), "任务").cx);
    EXPECT_GT(texts.SizeOf("任务", large).cx, size.cx);
    EXPECT_EQ(texts.SizeOf("任务", usual).cx, size.cx);
    EXPECT_EQ(texts.SizeOf("任务", usual).cy, size.cy);
}

TEST_F(Resolution, TheBarsOfAWindowStandFromTheStart) {
    for (const Size room : {Size{800, 300}, Size{300, 600}, Size{300, 300}, Size{800, 600}}) {
        stand_->SetWorkArea({0, 0, room.width, room.height});
        auto& other = windows_.Create<TestForm>("frmSmall");
        other.SetSizable(true);
        other.SetMinimumClientSize({400, 400});
        other.SetClientSize({400, 400});
        other.Show(false);
        const auto* shown = static_cast<driver::PlayedBackend&>(stand_->GetBackend()).Find(other);
        const auto style = GetWindowLongPtrW(shown->Handle(), GWL_STYLE);
        EXPECT_EQ((style & WS_VSCROLL) != 0, other.View().HasVerticalBar()) << room.height;
        EXPECT_EQ((style & WS_HSCROLL) != 0, other.View().HasHorizontalBar()) << room.width;
        EXPECT_EQ(other.View().HasVerticalBar() || other.View().HasHorizontalBar(),
                  room != Size(800, 600));
        other.Unload();
    }
}

struct ScrollingForm : TestForm {
    explicit ScrollingForm(WindowSystem& windows) : TestForm(windows, "frmScrolling") {
        constexpr int kMany = 100;
        tvwAll.Move({8, 8, 160, 200});
        grdAll.Move({176, 8, 160, 200});
        txtAll.Move({344, 8, 160, 80});
        txtAll.SetMultiLine(true);
        SetClientSize({512, 216});
        grdAll.SetColumns({{"编号", 120, true}, {"名称", 120, true}, {"地址", 120, true}});
        grdAll.SetDataRowCount(kMany);
        images.Add("item", Icon());
        tvwAll.SetImageList(&images);
        std::string lines;
        for (int i = 0; i < kMany; i++) {
            tvwAll.Add(TreeView::kNone, "Z" + std::to_string(i), "任务", "item");
            lines += std::to_string(i) + "\r\n";
        }
        txtAll.SetText(lines);
    }
    ImageList images;
    TreeView tvwAll{*this, "tvwAll"};
    Grid grdAll{*this, "grdAll"};
    TextBox txtAll{*this, "txtAll"};
};

TEST_F(Resolution, WhatIsScrolledInControlsStaysWhereItWas) {
    auto& other = windows_.Create<ScrollingForm>();
    other.Show(false);
    auto* shown = static_cast<driver::PlayedBackend&>(stand_->GetBackend()).Find(other);
    const HWND tree = shown->Find(other.tvwAll)->Handle();
    const HWND grid = shown->Find(other.grdAll)->Handle();
    const HWND text = shown->Find(other.txtAll)->Handle();
    const auto topNode = [&] { return SendMessageW(tree, TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0); };
    const auto topRow = [&] { return SendMessageW(grid, LVM_GETTOPINDEX, 0, 0); };
    const auto topLine = [&] { return SendMessageW(text, EM_GETFIRSTVISIBLELINE, 0, 0); };
    const auto column = [&] { return GetScrollPos(grid, SB_HORZ); };
    for (int page = 0; page < 3; page++) SendMessageW(tree, WM_VSCROLL, SB_PAGEDOWN, 0);
    SendMessageW(grid, LVM_SCROLL, 90, 600);
    SendMessageW(text, EM_LINESCROLL, 0, 30);
    const LRESULT node = topNode();
    const LRESULT row = topRow();
    ASSERT_NE(node, SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
    ASSERT_GT(row, 0);
    ASSERT_EQ(topLine(), 30);
    ASSERT_EQ(column(), 90);
    for (const int dpi : {2 * before, before}) {
        const Size pixels = Scale(dpi).ToPixels(Size{540, 260});
        const RECT suggested{20, 30, 20 + pixels.width, 30 + pixels.height};
        SendMessageW(shown->Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&suggested));
        EXPECT_EQ(topNode(), node) << dpi;
        EXPECT_EQ(topRow(), row) << dpi;
        EXPECT_EQ(topLine(), 30) << dpi;
        EXPECT_GT(column(), 0) << dpi;
    }
}

TEST_F(Resolution, ABoxIsScaledToo) {
    win32::Win32Backend real{GetModuleHandleW(nullptr)};
    WindowSystem windows{real};
    windows.title = "标题";
    RECT small{};
    RECT large{};
    int dpi = 0;
    onTimer = [&] {
        const HWND box = FindWindowW(L"#32770", L"标题");
        const HWND entry = GetDlgItem(box, win32::InputBox::kEntryId);
        dpi = win32::DpiOf(box);
        GetWindowRect(entry, &small);
        const RECT suggested{10, 10, 900, 500};
        SendMessageW(box, WM_DPICHANGED, MAKEWPARAM(2 * dpi, 2 * dpi),
                     reinterpret_cast<LPARAM>(&suggested));
        GetWindowRect(entry, &large);
        PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
    };
    SetTimer(nullptr, 0, 100, &Tick);
    EXPECT_EQ(windows.AskText("?"), std::nullopt);
    EXPECT_GT(small.right, small.left);
    EXPECT_EQ(large.right - large.left, 2 * (small.right - small.left));
    EXPECT_EQ(large.bottom - large.top, 2 * (small.bottom - small.top));
}

}  // namespace
}  // namespace zv::contract

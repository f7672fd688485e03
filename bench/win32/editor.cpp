// The plan editor from its opening until it is painted and takes input, against a plain window with
// the same native controls in the same places: zvbench_editor FILE RUNS. Prints the milliseconds of
// ours and of the floor (medians).
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "bench_application.h"
#include "floors/bare_window.h"
#include "measure.h"
#include "win32/screen.h"
#include "win32/wide_main.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::bench {
namespace {

constexpr wchar_t kFrameClass[] = L"zvBenchFrame";

/// A window as it was found: what CreateWindowEx needs to make its like, and what is in it.
struct Likeness {
    explicit Likeness(HWND window)
        : style(static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE))),
          extendedStyle(static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE))),
          font(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0))) {
        wchar_t buffer[256];
        GetClassNameW(window, buffer, 256);
        // Windows of our own classes hold controls and nothing else; what is inside a control it
        // makes by itself.
        const bool holder = std::wcsncmp(buffer, L"zv.", 3) == 0;
        className = holder ? kFrameClass : buffer;
        GetWindowTextW(window, buffer, 256);
        text = buffer;
        GetWindowRect(window, &place);
        if (const HWND parent = GetAncestor(window, GA_PARENT); parent != GetDesktopWindow()) {
            MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
        }
        for (HWND child = GetWindow(window, GW_CHILD); holder && child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            children.emplace_back(child);
        }
    }

    int Count() const {
        int count = 1;
        for (const Likeness& child : children) count += child.Count();
        return count;
    }
    HWND Make(HWND parent) const {
        const HWND window =
            CreateWindowExW(extendedStyle, className.c_str(), text.c_str(), style, place.left,
                            place.top, place.right - place.left, place.bottom - place.top, parent,
                            nullptr, GetModuleHandleW(nullptr), nullptr);
        if (window == nullptr) throw std::runtime_error("a control cannot be made");
        if (parent != nullptr) SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
        for (const Likeness& child : children) child.Make(window);
        return window;
    }

    DWORD style;
    DWORD extendedStyle;
    HFONT font;
    RECT place{};
    std::wstring className;
    std::wstring text;
    std::vector<Likeness> children;
};

void Main(const Arguments& arguments) {
    Screen screen;
    BenchApplication application(screen.backend, arguments[0]);
    const auto open = [&]() -> windows::frmTaskSet& {
        application.Control().refresh(2, 0);
        auto* editor =
            application.GetSession().windows.Find<windows::frmTaskSet>(windows::frmTaskSet::kName);
        if (editor == nullptr) throw std::runtime_error("the editor did not open");
        return *editor;
    };
    const Likeness likeness(screen.backend.Handle(open()));
    application.UnloadWindows();

    WNDCLASSEXW frame{};
    frame.cbSize = sizeof frame;
    frame.lpfnWndProc = DefWindowProcW;
    frame.hInstance = GetModuleHandleW(nullptr);
    frame.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    frame.lpszClassName = kFrameClass;
    RegisterClassExW(&frame);

    Series ours;
    Series floor;
    InTurn(
        std::atoi(arguments[1].c_str()),
        [&] {
            const Stopwatch watch;
            auto& editor = open();
            screen.Paint(editor);
            const double time = watch.Milliseconds();
            if (!editor.IsShown() || editor.txtTaskID.Text().empty()) {
                throw std::runtime_error("the editor is not ready");
            }
            application.UnloadWindows();
            driver::PumpMessages();
            return time;
        },
        ours,
        [&] {
            const Stopwatch watch;
            const HWND window = likeness.Make(nullptr);
            ShowWindow(window, SW_SHOW);
            UpdateWindow(window);
            driver::PumpMessages();
            const double time = watch.Milliseconds();
            DestroyWindow(window);
            driver::PumpMessages();
            return time;
        },
        floor);
    std::printf("%.3f %.3f %d\n", ours.Median(), floor.Median(), likeness.Count());
}

}  // namespace
}  // namespace zv::bench

int wmain(int count, wchar_t** values) {
    return zv::bench::WideMain(count, values, "zvbench_editor FILE RUNS", zv::bench::Main);
}

#include "driver/win32/standing_look.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "driver/driver.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_dialogs.h"

namespace zv::driver {

namespace {

// What the classes of dialogs and of open menus are called.
constexpr std::wstring_view kDialogClass = L"#32770";
constexpr std::wstring_view kMenuClass = L"#32768";

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length)};
}

std::vector<HWND> VisibleOf(std::wstring_view windowClass) {
    struct Search {
        std::wstring_view windowClass;
        std::vector<HWND> found;
    } search{windowClass, {}};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) CALLBACK -> BOOL {
            auto& at = *reinterpret_cast<Search*>(data);
            if (IsWindowVisible(window) && ClassOf(window) == at.windowClass) {
                at.found.push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return std::move(search.found);
}

// The loop of a box reports to nobody that it waits, so a timer looks for it. One looks at a time:
// all boxes belong to one thread, and the one that is looked at asks nothing.
class BoxLook {
 public:
    explicit BoxLook(const std::function<void(HWND)>& look)
        : look_(look), before_(VisibleOf(kDialogClass)) {
        present = this;
        constexpr UINT kOften = 100;
        timer_ = SetTimer(nullptr, 0, kOften, &BoxLook::OnTimer);
    }
    ~BoxLook() {
        Stop();
        present = nullptr;
    }
    BoxLook(const BoxLook&) = delete;
    BoxLook& operator=(const BoxLook&) = delete;

    void Finish() const {
        if (!seen_) throw DriverError("no box came up");
        if (failure_) std::rethrow_exception(failure_);
    }

 private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
        if (present) present->LookNow();
    }
    void LookNow() noexcept {
        for (const HWND box : VisibleOf(kDialogClass)) {
            if (std::find(before_.begin(), before_.end(), box) != before_.end()) continue;
            Stop();
            seen_ = true;
            try {
                look_(box);
            } catch (...) {
                failure_ = std::current_exception();
            }
            EndDialog(box, IDCANCEL);
            return;
        }
    }
    void Stop() {
        if (const UINT_PTR timer = std::exchange(timer_, 0)) KillTimer(nullptr, timer);
    }

    static inline BoxLook* present = nullptr;
    const std::function<void(HWND)>& look_;
    std::vector<HWND> before_;
    UINT_PTR timer_ = 0;
    bool seen_ = false;
    std::exception_ptr failure_;
};

struct Part {
    HWND window;
    RECT place;
    std::string name;
};

std::vector<Part> PartsOf(HWND box) {
    std::vector<Part> parts;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        std::string name = forms::win32::WindowText(child);
        // The place of the system's own sign is empty in a box without one.
        if (!IsWindowVisible(child) || (name.empty() && ClassOf(child) == L"Static")) continue;
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&place), 2);
        parts.push_back({child, place, "[" + name + "]"});
    }
    return parts;
}

// A button needs its caption in one line, a label its text in lines of its own width.
bool HasRoomForText(const Part& part) {
    const std::wstring windowClass = ClassOf(part.window);
    const bool button = windowClass == L"Button";
    if (!button && windowClass != L"Static") return true;
    const std::wstring text = forms::win32::ToWide(forms::win32::WindowText(part.window));
    if (text.empty()) return true;
    const forms::win32::WindowDc dc(part.window);
    auto* const font = reinterpret_cast<HFONT>(SendMessageW(part.window, WM_GETFONT, 0, 0));
    const HGDIOBJ former = font ? SelectObject(dc.get(), font) : nullptr;
    const LONG width = part.place.right - part.place.left;
    RECT needed{0, 0, width, 0};
    DrawTextW(dc.get(), text.c_str(), static_cast<int>(text.size()), &needed,
              DT_CALCRECT | (button ? DT_SINGLELINE : DT_WORDBREAK));
    if (former) SelectObject(dc.get(), former);
    return needed.right <= width && needed.bottom <= part.place.bottom - part.place.top;
}

}  // namespace

void LookAtBox(forms::win32::Win32Backend& backend, const std::function<void(forms::Dialogs&)>& ask,
               const std::function<void(HWND)>& look) {
    forms::win32::Win32Dialogs dialogs(backend);
    const BoxLook present(look);
    ask(dialogs);
    present.Finish();
}

std::vector<std::string> BoxFaults(HWND box) {
    std::vector<std::string> faults;
    RECT client{};
    GetClientRect(box, &client);
    const std::vector<Part> parts = PartsOf(box);
    if (parts.empty()) faults.emplace_back("the box has no parts");
    for (const Part& part : parts) {
        RECT common{};
        UnionRect(&common, &client, &part.place);
        if (!EqualRect(&common, &client)) faults.push_back(part.name + " lies outside of the box");
        for (const Part& other : parts) {
            if (&other == &part) break;
            if (IntersectRect(&common, &part.place, &other.place)) {
                faults.push_back(part.name + " lies across " + other.name);
            }
        }
        if (!HasRoomForText(part)) faults.push_back(part.name + " has no room for its text");
    }
    return faults;
}

std::vector<HWND> OpenMenus() {
    return VisibleOf(kMenuClass);
}

}  // namespace zv::driver

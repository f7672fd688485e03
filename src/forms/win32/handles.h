// Owners of system handles: one template, a policy for each kind of handle. They count what is
// alive, because not every system reports how many handles a process holds.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <uxtheme.h>

#include <atomic>
#include <utility>

namespace zv::forms::win32 {

inline std::atomic<int> liveHandles = 0;

/// Handles that the owners below hold at this moment, in the whole module.
inline int LiveHandles() {
    return liveHandles;
}

template <typename Policy>
class UniqueHandle {
 public:
    using Handle = typename Policy::Handle;

    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) { reset(handle); }
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Handle())) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) {
            reset();
            handle_ = std::exchange(other.handle_, Handle());
        }
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { reset(); }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != Handle(); }
    void reset(Handle handle = Handle()) {
        if (handle != Handle()) liveHandles++;
        // Closing may run code that comes back here.
        const Handle former = std::exchange(handle_, handle);
        if (former != Handle()) {
            liveHandles--;
            Policy::Close(former);
        }
    }
    [[nodiscard]] Handle release() {
        if (handle_ != Handle()) liveHandles--;
        return std::exchange(handle_, Handle());
    }

 private:
    Handle handle_{};
};

template <typename T>
struct GdiPolicy {
    using Handle = T;
    static void Close(T handle) { DeleteObject(handle); }
};
struct WindowPolicy {
    using Handle = HWND;
    static void Close(HWND handle) { DestroyWindow(handle); }
};
struct MenuPolicy {
    using Handle = HMENU;
    static void Close(HMENU handle) { DestroyMenu(handle); }
};
struct MemoryDcPolicy {
    using Handle = HDC;
    static void Close(HDC handle) { DeleteDC(handle); }
};
struct ThemePolicy {
    using Handle = HTHEME;
    static void Close(HTHEME handle) { CloseThemeData(handle); }
};
struct ContextPolicy {
    using Handle = HANDLE;
    static void Close(HANDLE handle) { ReleaseActCtx(handle); }
};
struct HookPolicy {
    using Handle = HHOOK;
    static void Close(HHOOK handle) { UnhookWindowsHookEx(handle); }
};
struct AtomPolicy {
    using Handle = ATOM;
    static void Close(ATOM handle) { GlobalDeleteAtom(handle); }
};
struct LibraryPolicy {
    using Handle = HMODULE;
    static void Close(HMODULE handle) { FreeLibrary(handle); }
};

using Window = UniqueHandle<WindowPolicy>;
using Font = UniqueHandle<GdiPolicy<HFONT>>;
using Brush = UniqueHandle<GdiPolicy<HBRUSH>>;
using Bitmap = UniqueHandle<GdiPolicy<HBITMAP>>;
using Menu = UniqueHandle<MenuPolicy>;
using MemoryDc = UniqueHandle<MemoryDcPolicy>;
using Theme = UniqueHandle<ThemePolicy>;
using Context = UniqueHandle<ContextPolicy>;
using Hook = UniqueHandle<HookPolicy>;
using Atom = UniqueHandle<AtomPolicy>;
using Library = UniqueHandle<LibraryPolicy>;

/// The drawing surface of a window, or of the screen for null.
class WindowDc {
 public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC get() const { return dc_; }

 private:
    HWND window_;
    HDC dc_;
};

/// Puts an object into a drawing surface and the former one back.
class Selected {
 public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, former_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

 private:
    HDC dc_;
    HGDIOBJ former_;
};

}  // namespace zv::forms::win32

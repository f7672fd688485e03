#include "forms/win32/system_dpi.h"

#include <array>

#include "forms/win32/user_function.h"

namespace zv::forms::win32 {
namespace {

using SystemContext = DPI_AWARENESS_CONTEXT;

SystemContext Native(DpiContext context) {
    return static_cast<SystemContext>(const_cast<void*>(context));
}

}  // namespace

DpiContext SystemDpiThread::Set(DpiContext context) noexcept {
    using SetContext = SystemContext(WINAPI*)(SystemContext);
    static const auto set = UserFunction<SetContext>("SetThreadDpiAwarenessContext");
    return set ? set(Native(context)) : nullptr;
}

std::span<const DpiContext> SystemDpiThread::Wanted() const noexcept {
    // Of the second version the system also scales frames, menus and dialogs.
    static const std::array<DpiContext, 2> wanted{DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2,
                                                  DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE};
    return wanted;
}

DpiContext DpiContextOf(HWND window) noexcept {
    using OfWindow = SystemContext(WINAPI*)(HWND);
    static const auto ofWindow = UserFunction<OfWindow>("GetWindowDpiAwarenessContext");
    return ofWindow ? ofWindow(window) : nullptr;
}

void ScaleFrame(HWND window) noexcept {
    using Enable = BOOL(WINAPI*)(HWND);
    static const auto enable = UserFunction<Enable>("EnableNonClientDpiScaling");
    if (enable) enable(window);
}

}  // namespace zv::forms::win32

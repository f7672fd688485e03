#include "forms/win32/subclass.h"

#include <unordered_map>

namespace zv::forms::win32 {
namespace {

struct Subclassed {
    NativeControl* control = nullptr;
    SubclassProcedure procedure = nullptr;
    WNDPROC former = nullptr;
};

std::unordered_map<HWND, Subclassed> subclassed;

WNDPROC ProcedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void PutProcedure(HWND window, WNDPROC procedure) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

WNDPROC FormerOf(HWND window) {
    const auto found = subclassed.find(window);
    return found == subclassed.end() ? &DefWindowProcW : found->second.former;
}

LRESULT CALLBACK FirstProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto found = subclassed.find(window);
    if (found == subclassed.end()) return DefWindowProcW(window, message, wParam, lParam);
    const Subclassed entry = found->second;
    const LRESULT result = entry.procedure(*entry.control, window, message, wParam, lParam);
    // The last message of a window, whose number a stranger's may get next.
    if (message == WM_NCDESTROY) subclassed.erase(window);
    return result;
}

}  // namespace

void Subclass(HWND window, NativeControl& control, SubclassProcedure procedure) {
    subclassed[window] = {&control, procedure, ProcedureOf(window)};
    PutProcedure(window, &FirstProcedure);
}

LRESULT CallSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(FormerOf(window), window, message, wParam, lParam);
}

void ForgetSubclasses() {
    subclassed.clear();
}

}  // namespace zv::forms::win32

// Texts in the clipboard.
#include <cstring>

#include "base/errors.h"
#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {
namespace {

// Other programs hold the clipboard for moments only: a program that watches it, for example, looks
// at each new content.
class OpenClipboardScope {
 public:
    explicit OpenClipboardScope(HWND owner) {
        constexpr int kAttempts = 20;
        constexpr DWORD kPauseMs = 25;
        for (int attempt = 0; attempt < kAttempts; attempt++) {
            if (attempt > 0) Sleep(kPauseMs);
            if (OpenClipboard(owner)) return;
        }
        throw RuntimeError(ErrorNumber::ClipboardInUse);
    }
    ~OpenClipboardScope() { CloseClipboard(); }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
};

}  // namespace

void Win32Backend::SetClipboardText(std::string_view text) {
    const std::wstring wide = ToWide(text);
    const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!memory) throw RuntimeError(ErrorNumber::OutOfMemory);
    std::memcpy(GlobalLock(memory), wide.c_str(), bytes);
    GlobalUnlock(memory);
    try {
        // An owner is needed, or emptying the clipboard leaves it with none and closed to us.
        const OpenClipboardScope clipboard(windows_.empty() ? nullptr : windows_.back()->Handle());
        EmptyClipboard();
        if (!SetClipboardData(CF_UNICODETEXT, memory)) {
            throw RuntimeError(ErrorNumber::ClipboardInUse);
        }
    } catch (...) {
        GlobalFree(memory);
        throw;
    }
}

std::string Win32Backend::ClipboardText() {
    const OpenClipboardScope clipboard(nullptr);
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    if (!memory) return {};
    const auto* text = static_cast<const wchar_t*>(GlobalLock(memory));
    std::string result = text ? FromWide(text) : std::string();
    GlobalUnlock(memory);
    return result;
}

}  // namespace zv::forms::win32

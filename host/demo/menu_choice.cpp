#include "demo/menu_choice.h"

#include <algorithm>
#include <optional>

namespace zv::demo {
namespace {

struct Search {
    std::wstring_view name;
    HWND found = nullptr;
};

BOOL CALLBACK Visit(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    const auto atom = static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(window, L"zv.Name")));
    wchar_t name[256] = L"";
    if (!atom || !GlobalGetAtomNameW(atom, name, 256) || search.name != name) return TRUE;
    search.found = window;
    return FALSE;
}

std::optional<UINT> FindEntry(HMENU menu, std::span<const std::wstring> captions) {
    for (int at = 0; at < GetMenuItemCount(menu); at++) {
        if (const HMENU below = GetSubMenu(menu, at)) {
            if (const auto found = FindEntry(below, captions)) return found;
            continue;
        }
        const auto position = static_cast<UINT>(at);
        wchar_t caption[256] = L"";
        GetMenuStringW(menu, position, caption, 256, MF_BYPOSITION);
        const bool wanted =
            std::any_of(captions.begin(), captions.end(), [&](const std::wstring& begin) {
                return std::wstring_view(caption).starts_with(begin);
            });
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        if (wanted && !(state & (MF_GRAYED | MF_DISABLED))) return GetMenuItemID(menu, at);
    }
    return {};
}

}  // namespace

HWND FindNamedWindow(std::wstring_view name) {
    Search search{name};
    EnumThreadWindows(GetCurrentThreadId(), &Visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool ChooseMenuEntry(HWND window, std::span<const std::wstring> captions) {
    const HMENU bar = GetMenu(window);
    const auto entry = bar ? FindEntry(bar, captions) : std::nullopt;
    if (!entry) return false;
    // Posted, because what it opens may be modal.
    PostMessageW(window, WM_COMMAND, *entry, 0);
    return true;
}

}  // namespace zv::demo

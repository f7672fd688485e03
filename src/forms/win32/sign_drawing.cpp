#include "forms/win32/sign_drawing.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

constexpr const wchar_t* kGoesOn = L"\u2026";

int Padding(HDC dc) {
    constexpr int kAtUsualResolution = 6;
    return MulDiv(kAtUsualResolution, GetDeviceCaps(dc, LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
}

SIZE SizeOf(HDC dc, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

bool RectOf(HWND tree, HTREEITEM item, bool textOnly, RECT& place) {
    // The message reads the item from the result's place.
    const auto handle = reinterpret_cast<std::uintptr_t>(item);
    std::memcpy(&place, &handle, sizeof handle);
    return SendMessageW(tree, TVM_GETITEMRECT, textOnly, reinterpret_cast<LPARAM>(&place)) != 0;
}

std::optional<COLORREF> ColorOf(const Sign& sign, const SystemTheme& theme, bool selected) {
    const auto color = ShownColor(sign.color, theme, selected);
    if (!color) return std::nullopt;
    return RGB((*color >> 16) & 0xFF, (*color >> 8) & 0xFF, *color & 0xFF);
}

/// Where the last letter ends that stands whole in front of a mark, when a text that begins at
/// `left` may reach to `right`.
int EndOfWholeLetters(HDC dc, const std::wstring& text, int left, int right) {
    int count = 0;
    SIZE size{};
    const int room = std::max(0, static_cast<int>(right - left - SizeOf(dc, kGoesOn).cx));
    GetTextExtentExPointW(dc, text.c_str(), static_cast<int>(text.size()), room, &count, nullptr,
                          &size);
    const auto letters = static_cast<std::size_t>(count);
    const bool halves =
        letters > 0 && letters < text.size() && IS_SURROGATE_PAIR(text[letters - 1], text[letters]);
    return left + static_cast<int>(SizeOf(dc, text.substr(0, letters - (halves ? 1 : 0))).cx);
}

/// What a text that reaches under its sign has there instead of the piece of a letter.
void DrawMark(HDC dc, HWND tree, HTREEITEM item, int right,
              const std::function<std::wstring()>& whole) {
    RECT label{};
    if (!RectOf(tree, item, true, label) || label.right <= right) return;
    const std::wstring text = whole();
    // The tree leaves the same room at both ends, if it shows the whole text.
    const int rest = static_cast<int>(label.right - label.left - SizeOf(dc, text).cx);
    const int margin = std::clamp(rest / 2, 0, Padding(dc));
    RECT place{EndOfWholeLetters(dc, text, label.left + margin, right - margin), label.top, right,
               label.bottom};
    FillRect(dc, &place, GetSysColorBrush(COLOR_WINDOW));
    DrawTextW(dc, kGoesOn, -1, &place, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void DrawWord(NMTVCUSTOMDRAW& draw, const Sign& sign, const TextOfItem& text,
              const SystemTheme& theme) {
    const HDC dc = draw.nmcd.hdc;
    const HWND tree = draw.nmcd.hdr.hwndFrom;
    RECT row{};
    const auto item = reinterpret_cast<HTREEITEM>(draw.nmcd.dwItemSpec);
    if (!RectOf(tree, item, false, row)) return;
    RECT client{};
    GetClientRect(tree, &client);
    const HGDIOBJ former =
        SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(tree, WM_GETFONT, 0, 0)));
    const std::wstring word = ToWide(sign.text);
    RECT place{SignLeft(tree, dc, sign) - Padding(dc), row.top, client.right, row.bottom};
    FillRect(dc, &place, GetSysColorBrush(COLOR_WINDOW));
    const int left = place.left;
    place.right -= Padding(dc);
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF color =
        SetTextColor(dc, ColorOf(sign, theme, false).value_or(GetSysColor(COLOR_WINDOWTEXT)));
    DrawTextW(dc, word.c_str(), static_cast<int>(word.size()), &place,
              DT_RIGHT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    DrawMark(dc, tree, item, left, [&] { return text(draw.nmcd.lItemlParam); });
    SetTextColor(dc, color);
    SetBkMode(dc, mode);
    SelectObject(dc, former);
}

}  // namespace

int SignLeft(HWND tree, HDC dc, const Sign& sign) {
    RECT client{};
    GetClientRect(tree, &client);
    return static_cast<int>(client.right - SizeOf(dc, ToWide(sign.text)).cx - Padding(dc));
}

bool IsCut(HWND tree, HTREEITEM item, const std::optional<Sign>& sign) {
    RECT text{};
    if (!RectOf(tree, item, true, text)) return false;
    RECT client{};
    GetClientRect(tree, &client);
    int right = client.right;
    if (sign) {
        const HDC dc = GetDC(tree);
        const HGDIOBJ former =
            SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(tree, WM_GETFONT, 0, 0)));
        right = SignLeft(tree, dc, *sign) - Padding(dc);
        SelectObject(dc, former);
        ReleaseDC(tree, dc);
    }
    return text.left < 0 || text.right > right;
}

LRESULT DrawTreeSigns(NMTVCUSTOMDRAW& draw, const SignOfItem& sign, const TextOfItem& text,
                      const SystemTheme& theme) {
    switch (draw.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT: {
            const auto found = sign(draw.nmcd.lItemlParam);
            if (!found) return CDRF_DODEFAULT;
            const bool selected = draw.nmcd.uItemState & (CDIS_SELECTED | CDIS_FOCUS);
            if (const auto color = ColorOf(*found, theme, selected)) draw.clrText = *color;
            return CDRF_NOTIFYPOSTPAINT;
        }
        case CDDS_ITEMPOSTPAINT:
            if (const auto found = sign(draw.nmcd.lItemlParam)) DrawWord(draw, *found, text, theme);
            return CDRF_DODEFAULT;
        default:
            return CDRF_DODEFAULT;
    }
}

LRESULT DrawListSigns(NMLVCUSTOMDRAW& draw, const SignOfItem& sign, const SystemTheme& theme) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const auto row = static_cast<LPARAM>(draw.nmcd.dwItemSpec);
    const auto found = sign(row);
    const bool selected = SendMessageW(draw.nmcd.hdr.hwndFrom, LVM_GETITEMSTATE,
                                       static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    if (!found) return CDRF_DODEFAULT;
    if (const auto color = ColorOf(*found, theme, selected)) draw.clrText = *color;
    return CDRF_DODEFAULT;
}

}  // namespace zv::forms::win32

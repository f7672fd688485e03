#include "com/design_view.h"

#include <algorithm>

#include "automation/module.h"
#include "com/resource_ids.h"

namespace zv::com {

namespace {

constexpr int kHimetricPerInch = 2540;

struct Dpi {
    int x = 96;
    int y = 96;
};

Dpi DisplayDpi() noexcept {
    const HDC screen = GetDC(nullptr);
    if (!screen) return {};
    const Dpi dpi{GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return dpi;
}

HFONT CreateCaptionFont(int height) noexcept {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    LOGFONTW font{};
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
        font = metrics.lfMessageFont;
    }
    font.lfHeight = -height;
    font.lfWidth = 0;
    return CreateFontIndirectW(&font);
}

void DrawName(HDC context, RECT place, std::wstring_view name, int lineHeight) noexcept {
    const HFONT font = CreateCaptionFont(lineHeight * 3 / 4);
    const HGDIOBJ before = font ? SelectObject(context, font) : nullptr;
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(context, name.data(), static_cast<int>(name.size()), &place,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (before) SelectObject(context, before);
    if (font) DeleteObject(font);
}

}  // namespace

void DrawDesignView(HDC context, const RECT& bounds, std::wstring_view name) noexcept {
    const int saved = SaveDC(context);
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    FillRect(context, &bounds, GetSysColorBrush(COLOR_BTNFACE));
    FrameRect(context, &bounds, GetSysColorBrush(COLOR_BTNSHADOW));

    // The name takes the lower quarter, the icon what is left above it.
    const int lineHeight = std::max(height / 4, 1);
    const int iconSize = std::max(std::min(width, height - lineHeight) * 3 / 4, 1);
    const int left = bounds.left + (width - iconSize) / 2;
    const int top = bounds.top + (height - lineHeight - iconSize) / 2;
    if (const auto icon =
            static_cast<HICON>(LoadImageW(automation::module::Handle(), MAKEINTRESOURCEW(ZV_ICON),
                                          IMAGE_ICON, iconSize, iconSize, LR_DEFAULTCOLOR))) {
        DrawIconEx(context, left, top, icon, iconSize, iconSize, 0, nullptr, DI_NORMAL);
        DestroyIcon(icon);
    }
    const RECT line{bounds.left + 2, bounds.bottom - lineHeight - 1, bounds.right - 2,
                    bounds.bottom - 1};
    DrawName(context, line, name, lineHeight);
    RestoreDC(context, saved);
}

SIZEL ToHimetric(SIZE pixels) noexcept {
    const Dpi dpi = DisplayDpi();
    return {MulDiv(pixels.cx, kHimetricPerInch, dpi.x), MulDiv(pixels.cy, kHimetricPerInch, dpi.y)};
}

SIZE ToPixels(SIZEL himetric) noexcept {
    const Dpi dpi = DisplayDpi();
    return {MulDiv(himetric.cx, dpi.x, kHimetricPerInch),
            MulDiv(himetric.cy, dpi.y, kHimetricPerInch)};
}

}  // namespace zv::com

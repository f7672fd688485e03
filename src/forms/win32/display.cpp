#include "forms/win32/display.h"

#include <algorithm>
#include <array>
#include <string>

#include "forms/win32/user_function.h"
#include "forms/win32/wide_text.h"
#include "resources/glyph_samples.h"

namespace zv::forms::win32 {
namespace {

bool HasChinese(HDC dc) {
    std::array<WORD, std::size(resources::kLettersOfBothScripts) - 1> glyphs{};
    const int count = static_cast<int>(glyphs.size());
    if (GetGlyphIndicesW(dc, resources::kLettersOfBothScripts, count, glyphs.data(),
                         GGI_MARK_NONEXISTING_GLYPHS) == GDI_ERROR) {
        return true;
    }
    return std::find(glyphs.begin(), glyphs.end(), WORD{0xFFFF}) == glyphs.end();
}

// A font that does not exist is replaced by the system without a word.
bool IsNamed(HDC dc, const wchar_t* face) {
    std::array<wchar_t, LF_FACESIZE> actual{};
    GetTextFaceW(dc, LF_FACESIZE, actual.data());
    return lstrcmpiW(actual.data(), face) == 0;
}

RECT WorkAreaOf(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(monitor, &info)) return info.rcWork;
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

}  // namespace

Rect FromNative(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top),
            static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

RECT ToNative(const Rect& rect) {
    return {rect.left, rect.top, rect.Right(), rect.Bottom()};
}

int SystemDpi() {
    const WindowDc screen(nullptr);
    return GetDeviceCaps(screen.get(), LOGPIXELSX);
}

int DpiOf(HWND window) {
    using ForWindow = UINT(WINAPI*)(HWND);
    static const auto forWindow = UserFunction<ForWindow>("GetDpiForWindow");
    const UINT dpi = forWindow ? forWindow(window) : 0;
    return dpi > 0 ? static_cast<int>(dpi) : SystemDpi();
}

// What the system says of a monitor may depend on the program's awareness; of a window there it is
// what the window will have.
int DpiAround(const RECT& place) {
    const Window probe(CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, L"STATIC", L"",
                                       WS_POPUP, place.left, place.top, 1, 1, nullptr, nullptr,
                                       nullptr, nullptr));
    return probe ? DpiOf(probe.get()) : SystemDpi();
}

RECT WorkAreaAt(HWND window) {
    return WorkAreaOf(
        MonitorFromWindow(window, window ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY));
}

RECT WorkAreaAround(const RECT& place) {
    return WorkAreaOf(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST));
}

int BarThickness(int dpi) {
    using ForDpi = int(WINAPI*)(int, UINT);
    static const auto forDpi = UserFunction<ForDpi>("GetSystemMetricsForDpi");
    if (forDpi) return forDpi(SM_CXVSCROLL, static_cast<UINT>(dpi));
    return MulDiv(GetSystemMetrics(SM_CXVSCROLL), dpi, SystemDpi());
}

LOGFONTW MessageFont(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    using ForDpi = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto forDpi = UserFunction<ForDpi>("SystemParametersInfoForDpi");
    if (forDpi &&
        forDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
        return metrics.lfMessageFont;
    }
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
    return metrics.lfMessageFont;
}

Font CreateUiFont(int dpi) {
    return CreateUiFont(MessageFont(dpi));
}

Font CreateUiFont(LOGFONTW wanted) {
    Font font(CreateFontIndirectW(&wanted));
    const WindowDc screen(nullptr);
    {
        const Selected selected(screen.get(), font.get());
        if (HasChinese(screen.get())) return font;
    }
    for (const wchar_t* face : {L"Microsoft YaHei UI", L"Microsoft JhengHei UI",
                                L"WenQuanYi Micro Hei", L"Noto Sans CJK SC", L"SimSun"}) {
        lstrcpynW(wanted.lfFaceName, face, LF_FACESIZE);
        wanted.lfCharSet = DEFAULT_CHARSET;
        Font candidate(CreateFontIndirectW(&wanted));
        const Selected selected(screen.get(), candidate.get());
        if (IsNamed(screen.get(), face) && HasChinese(screen.get())) return candidate;
    }
    return font;
}

SIZE MeasureText(HFONT font, std::string_view text) {
    const WindowDc screen(nullptr);
    const Selected selected(screen.get(), font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen.get(), &metrics);
    SIZE size{0, 0};
    const std::wstring wide = ToWide(text);
    for (std::size_t begin = 0; begin <= wide.size();) {
        const std::size_t end = std::min(wide.find(L'\n', begin), wide.size());
        std::size_t length = end - begin;
        if (length > 0 && wide[end - 1] == L'\r') length--;
        SIZE line{};
        GetTextExtentPoint32W(screen.get(), wide.data() + begin, static_cast<int>(length), &line);
        size.cx = std::max(size.cx, line.cx);
        size.cy += metrics.tmHeight;
        begin = end + 1;
    }
    return size;
}

RECT OuterRect(const RECT& client, DWORD style, DWORD extendedStyle, bool menu, int dpi) {
    RECT outer = client;
    using ForDpi = BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT);
    static const auto forDpi = UserFunction<ForDpi>("AdjustWindowRectExForDpi");
    if (!forDpi || !forDpi(&outer, style, menu, extendedStyle, static_cast<UINT>(dpi))) {
        AdjustWindowRectEx(&outer, style, menu, extendedStyle);
    }
    return outer;
}

}  // namespace zv::forms::win32

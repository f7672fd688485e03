#include "alerter/windows/face_icon.h"

#include <memory>

namespace zv::alerter {
namespace {

constexpr COLORREF kBlue = RGB(0x1F, 0x5C, 0x99);
constexpr COLORREF kRed = RGB(0xB0, 0x00, 0x20);
constexpr COLORREF kGrey = RGB(0x77, 0x77, 0x77);

struct Destroy {
    void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};
using Object = std::unique_ptr<std::remove_pointer_t<HGDIOBJ>, Destroy>;
struct DestroyDc {
    void operator()(HDC dc) const noexcept { DeleteDC(dc); }
};
using Dc = std::unique_ptr<std::remove_pointer_t<HDC>, DestroyDc>;

COLORREF Ground(Mood mood) {
    switch (mood) {
        case Mood::NothingDue:
            return kBlue;
        case Mood::Due:
            return kRed;
        default:
            return kGrey;
    }
}

// A clock: two hands, or the bars of a pause.
void DrawSign(HDC dc, Mood mood, int size) {
    const int middle = size / 2;
    const int reach = size * 3 / 10;
    const Object pen(CreatePen(PS_SOLID, size >= 24 ? 3 : 2, RGB(255, 255, 255)));
    const HGDIOBJ before = SelectObject(dc, pen.get());
    const auto line = [&](int x1, int y1, int x2, int y2) {
        MoveToEx(dc, x1, y1, nullptr);
        LineTo(dc, x2, y2);
    };
    if (mood == Mood::Paused) {
        line(middle - size / 6, middle - reach, middle - size / 6, middle + reach);
        line(middle + size / 6, middle - reach, middle + size / 6, middle + reach);
    } else {
        line(middle, middle - reach, middle, middle);
        line(middle, middle, middle + reach * 3 / 4, middle + reach / 3);
    }
    SelectObject(dc, before);
}

void DrawNumber(HDC dc, const std::wstring& text, int size) {
    LOGFONTW look{};
    look.lfHeight = text.size() > 1 ? -size * 6 / 10 : -size * 7 / 10;
    look.lfWeight = FW_BOLD;
    look.lfQuality = ANTIALIASED_QUALITY;
    lstrcpynW(look.lfFaceName, L"Tahoma", LF_FACESIZE);
    const Object font(CreateFontIndirectW(&look));
    const HGDIOBJ before = SelectObject(dc, font.get());
    SetTextColor(dc, RGB(255, 255, 255));
    SetBkMode(dc, TRANSPARENT);
    RECT all{0, 0, size, size};
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &all,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, before);
}

}  // namespace

HICON MakeFaceIcon(Mood mood, const std::wstring& sign, int size) {
    const Dc dc(CreateCompatibleDC(nullptr));
    const HDC screen = GetDC(nullptr);
    const Object colours(CreateCompatibleBitmap(screen, size, size));
    ReleaseDC(nullptr, screen);
    const Object mask(CreateBitmap(size, size, 1, 1, nullptr));
    if (!dc || !colours || !mask) return nullptr;

    const HGDIOBJ before = SelectObject(dc.get(), mask.get());
    PatBlt(dc.get(), 0, 0, size, size, WHITENESS);
    SelectObject(dc.get(), GetStockObject(BLACK_BRUSH));
    Ellipse(dc.get(), 0, 0, size, size);

    SelectObject(dc.get(), colours.get());
    PatBlt(dc.get(), 0, 0, size, size, BLACKNESS);
    const COLORREF ground = Ground(mood);
    const Object brush(CreateSolidBrush(ground));
    const Object pen(CreatePen(PS_SOLID, 1, ground));
    const HGDIOBJ oldBrush = SelectObject(dc.get(), brush.get());
    const HGDIOBJ oldPen = SelectObject(dc.get(), pen.get());
    Ellipse(dc.get(), 0, 0, size, size);
    if (sign.empty()) {
        DrawSign(dc.get(), mood, size);
    } else {
        DrawNumber(dc.get(), sign, size);
    }
    SelectObject(dc.get(), oldPen);
    SelectObject(dc.get(), oldBrush);
    SelectObject(dc.get(), before);

    ICONINFO info{TRUE, 0, 0, static_cast<HBITMAP>(mask.get()),
                  static_cast<HBITMAP>(colours.get())};
    return CreateIconIndirect(&info);
}

}  // namespace zv::alerter

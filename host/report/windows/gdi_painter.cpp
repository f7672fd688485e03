#include "report/windows/gdi_painter.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "base/win32/wide.h"

namespace zv::report {
namespace {

COLORREF ColorOf(Grey grey) {
    const int level = static_cast<int>(std::lround(std::clamp(grey, 0.0, 1.0) * 255));
    return RGB(level, level, level);
}

// Of a font's characters, as the system takes it for a wish of another width.
double AverageWidth(HDC dc, HFONT font) {
    const forms::win32::Selected selected(dc, font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    return static_cast<double>(metrics.tmAveCharWidth);
}

}  // namespace

GdiPainter::GdiPainter(HDC dc, const FontSet& fonts, const Placement& place)
    : dc_(dc), fonts_(fonts), place_(place) {}

int GdiPainter::X(double points) const {
    return static_cast<int>(std::lround(place_.left + points * place_.scaleX));
}

int GdiPainter::Y(double points) const {
    return static_cast<int>(std::lround(place_.top + points * place_.scaleY));
}

void GdiPainter::Fill(const RECT& area, Grey grey) {
    const forms::win32::Brush brush(CreateSolidBrush(ColorOf(grey)));
    FillRect(dc_, &area, brush.get());
}

void GdiPainter::Draw(const Page& page) {
    for (const Ground& ground : page.grounds) {
        Fill({X(ground.x), Y(ground.y), X(ground.x + ground.width), Y(ground.y + ground.height)},
             ground.grey);
    }
    for (const Rule& rule : page.rules) {
        const bool isHorizontal = rule.y1 == rule.y2;
        const double scale = isHorizontal ? place_.scaleY : place_.scaleX;
        const int width = std::max(1, static_cast<int>(std::lround(rule.width * scale)));
        RECT area{X(rule.x1), Y(rule.y1), X(rule.x2), Y(rule.y2)};
        if (isHorizontal) {
            area.top -= width / 2;
            area.bottom = area.top + width;
        } else {
            area.left -= width / 2;
            area.right = area.left + width;
        }
        Fill(area, rule.grey);
    }
    const int former = SaveDC(dc_);
    SetBkMode(dc_, TRANSPARENT);
    SetTextAlign(dc_, TA_BASELINE | TA_LEFT | TA_NOUPDATECP);
    for (const TextRun& run : page.texts) Draw(run);
    RestoreDC(dc_, former);
}

void GdiPainter::Draw(const TextRun& run) {
    double x = run.x;
    int pixel = X(x);
    int pieceX = pixel;
    const Glyph* first = nullptr;
    std::u16string piece;
    std::vector<int> advances;
    const auto show = [&] {
        if (first && !piece.empty()) Show(piece, advances, *first, run, pieceX);
        piece.clear();
        advances.clear();
        first = nullptr;
    };
    for (std::size_t position = 0; position < run.text.size();) {
        char32_t c = text::NextCodePoint(run.text, position);
        const Glyph& glyph = fonts_.Find(c);
        if (glyph.isReplacement) c = fonts_.Replacement();
        if (first && glyph.font != first->font) show();
        if (!first) {
            first = &glyph;
            pieceX = pixel;
        }
        x += static_cast<double>(glyph.advance) * run.size;
        const int next = X(x);
        std::string character;
        text::AppendCodePoint(character, c);
        const std::u16string units = text::ToUtf16(character);
        piece += units;
        advances.push_back(next - pixel);
        advances.resize(piece.size(), 0);
        pixel = next;
    }
    show();
}

void GdiPainter::Show(const std::u16string& text, const std::vector<int>& advances,
                      const Glyph& first, const TextRun& run, int x) {
    const HFONT font = FontOf(first.font, run.size, run.bold);
    if (!font) return;
    const forms::win32::Selected selected(dc_, font);
    SetTextColor(dc_, ColorOf(run.grey));
    ExtTextOutW(dc_, x, Y(run.baseline), 0, nullptr, reinterpret_cast<const wchar_t*>(text.data()),
                static_cast<UINT>(text.size()), advances.data());
}

HFONT GdiPainter::FontOf(std::uint16_t font, double size, bool bold) {
    const int height = std::max(1, static_cast<int>(std::lround(size * place_.scaleY)));
    forms::win32::Font& made = made_[{font, height, bold}];
    if (!made) {
        LOGFONTW wanted{};
        wanted.lfHeight = -height;
        wanted.lfWeight = bold ? FW_BOLD : FW_NORMAL;
        wanted.lfCharSet = DEFAULT_CHARSET;
        wanted.lfOutPrecision = OUT_TT_ONLY_PRECIS;
        wanted.lfQuality = ANTIALIASED_QUALITY;
        lstrcpynW(wanted.lfFaceName, win32::ToWide(fonts_.Fonts()[font].family).c_str(),
                  LF_FACESIZE);
        made.reset(CreateFontIndirectW(&wanted));
        if (place_.scaleX != place_.scaleY) {
            wanted.lfWidth = std::max(
                1L, std::lround(AverageWidth(dc_, made.get()) * place_.scaleX / place_.scaleY));
            made.reset(CreateFontIndirectW(&wanted));
        }
    }
    return made.get();
}

}  // namespace zv::report

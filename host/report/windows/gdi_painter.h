// Draws pages with the system's drawing: on the screen and on printers.
#pragma once

#include <windows.h>

#include <map>
#include <tuple>

#include "forms/win32/handles.h"
#include "report/font_set.h"
#include "report/page.h"
#include "report/paper_fit.h"

namespace zv::report {

class GdiPainter {
 public:
    GdiPainter(HDC dc, const FontSet& fonts, const Placement& place);

    /// Characters stand where the layout has put them, whatever the device's own widths are.
    void Draw(const Page& page);

 private:
    int X(double points) const;
    int Y(double points) const;
    void Fill(const RECT& area, Grey grey);
    void Draw(const TextRun& run);
    void Show(const std::u16string& text, const std::vector<int>& advances, const Glyph& first,
              const TextRun& run, int x);
    HFONT FontOf(std::uint16_t font, double size, bool bold);

    HDC dc_;
    const FontSet& fonts_;
    Placement place_;
    std::map<std::tuple<int, int, bool>, forms::win32::Font> made_;
};

}  // namespace zv::report

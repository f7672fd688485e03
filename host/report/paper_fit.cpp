#include "report/paper_fit.h"

#include <algorithm>

namespace zv::report {
namespace {

constexpr double kPointsPerInch = 72;
// Sizes of paper are rounded to whole dots and millimetres.
constexpr double kPaperTolerance = 3;

}  // namespace

Placement FitPage(double pageWidth, double pageHeight, const Sheet& sheet) {
    Placement place;
    place.scaleX = sheet.dotsPerInchX / kPointsPerInch;
    place.scaleY = sheet.dotsPerInchY / kPointsPerInch;
    if (sheet.width > 0 && sheet.height > 0) {
        const double paperWidth = sheet.width / place.scaleX;
        const double paperHeight = sheet.height / place.scaleY;
        double shrink = 1;
        if (paperWidth < pageWidth - kPaperTolerance ||
            paperHeight < pageHeight - kPaperTolerance) {
            shrink = std::min(paperWidth / pageWidth, paperHeight / pageHeight);
        }
        const auto margin = [](double paper, double page) {
            return std::max(paper - page, 0.0) / 2;
        };
        place.left = margin(paperWidth, pageWidth * shrink) * place.scaleX;
        place.top = margin(paperHeight, pageHeight * shrink) * place.scaleY;
        place.scaleX *= shrink;
        place.scaleY *= shrink;
    }
    place.left -= sheet.unprintableLeft;
    place.top -= sheet.unprintableTop;
    return place;
}

}  // namespace zv::report

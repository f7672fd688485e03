#include "report/preview/page_view.h"

#include <algorithm>
#include <cmath>

namespace zv::report {
namespace {

constexpr int kEdge = 14;  // around the page
constexpr double kUnitsPerPoint = 96.0 / 72;

}  // namespace

void PageView::SetPage(double widthPoints, double heightPoints) {
    width_ = widthPoints;
    height_ = heightPoints;
}

void PageView::SetArea(forms::Size area) {
    area_ = area;
}

void PageView::SetZoom(ZoomMode mode, int percent) {
    mode_ = mode;
    percent_ = std::clamp(percent, kSmallest, kLargest);
}

double PageView::Scale() const {
    const double across = (area_.width - 2 * kEdge) / width_;
    const double down = (area_.height - 2 * kEdge) / height_;
    const double fitted = mode_ == ZoomMode::FitWidth ? across : std::min(across, down);
    if (mode_ == ZoomMode::Percent) return kUnitsPerPoint * percent_ / 100;
    return std::clamp(fitted, kUnitsPerPoint * kSmallest / 100, kUnitsPerPoint * kLargest / 100);
}

int PageView::Percent() const {
    return static_cast<int>(std::lround(Scale() / kUnitsPerPoint * 100));
}

int PageView::Step(int direction) const {
    const int present = Percent();
    if (direction > 0) {
        const auto next = std::upper_bound(kSteps.begin(), kSteps.end(), present);
        return next == kSteps.end() ? kSteps.back() : *next;
    }
    const auto at = std::lower_bound(kSteps.begin(), kSteps.end(), present);
    return at == kSteps.begin() ? kSteps.front() : *std::prev(at);
}

double PageView::Content(double points) const {
    return points * Scale() + 2 * kEdge;
}

forms::Canvas::Scroll PageView::Horizontal(int position) const {
    return {static_cast<int>(Content(width_)), area_.width, position};
}

forms::Canvas::Scroll PageView::Vertical(int position) const {
    return {static_cast<int>(Content(height_)), area_.height, position};
}

double PageView::Place(double content, int area, int scrolled) {
    return content <= area ? (area - content) / 2 + kEdge : kEdge - scrolled;
}

double PageView::Left(int scrolled) const {
    return Place(Content(width_), area_.width, scrolled);
}

double PageView::Top(int scrolled) {
    // A page that is shorter than the area begins at its top like a taller one.
    return kEdge - scrolled;
}

}  // namespace zv::report

// How a page lies in the area that shows it: zoom, place and scrolling. Lengths in 1/96 inch.
#pragma once

#include <array>

#include "forms/canvas.h"
#include "forms/geometry.h"

namespace zv::report {

enum class ZoomMode { Percent, FitWidth, WholePage };

class PageView {
 public:
    /// Percents to choose from and to go through.
    static constexpr std::array kSteps{25, 50, 75, 100, 125, 150, 200, 300, 400};
    static constexpr int kSmallest = kSteps.front();
    static constexpr int kLargest = kSteps.back();

    void SetPage(double widthPoints, double heightPoints);
    void SetArea(forms::Size area);
    void SetZoom(ZoomMode mode, int percent);
    ZoomMode Mode() const { return mode_; }
    /// What is in force now, also of the two modes that follow the area.
    int Percent() const;
    /// The next of the fixed steps in a direction, +1 larger; the same at the end.
    int Step(int direction) const;

    /// Scrolling as the zoom makes it necessary; the canvas keeps the position inside.
    forms::Canvas::Scroll Horizontal(int position) const;
    forms::Canvas::Scroll Vertical(int position) const;
    /// Of the page's upper left corner in the area, negative when scrolled; a page that is narrower
    /// than the area lies in its middle.
    double Left(int scrolled) const;
    static double Top(int scrolled);
    /// 1/96 inch of the area for a point of the page.
    double Scale() const;

 private:
    double Content(double points) const;
    static double Place(double content, int area, int scrolled);

    double width_ = 1;
    double height_ = 1;
    forms::Size area_{1, 1};
    ZoomMode mode_ = ZoomMode::FitWidth;
    int percent_ = 100;
};

}  // namespace zv::report

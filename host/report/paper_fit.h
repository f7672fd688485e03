// Where a page lies on a sheet of paper.
#pragma once

namespace zv::report {

/// How pages are drawn on a device: a point of the page lies at left + x * scaleX, top + y * scaleY
/// in the device's units. A device may be finer in one direction than in the other.
struct Placement {
    double scaleX = 1;
    double scaleY = 1;
    double left = 0;
    double top = 0;
};

/// A sheet as its printer describes it, in dots.
struct Sheet {
    int dotsPerInchX = 0;
    int dotsPerInchY = 0;
    /// The whole paper; 0 where the device does not report it.
    int width = 0;
    int height = 0;
    /// The printer counts from the first dot that it can print on.
    int unprintableLeft = 0;
    int unprintableTop = 0;
};

/// A page (in points) on a sheet: in its true size where the paper is as large, else as large as
/// fits, in the middle. Paper of another size or direction than the page is the user's choice.
Placement FitPage(double pageWidth, double pageHeight, const Sheet& sheet);

}  // namespace zv::report

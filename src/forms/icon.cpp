#include "forms/icon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "base/errors.h"

namespace zv::forms {

namespace {

constexpr double kGrid = 16.0;
/// Sample points of a pixel in each direction: 65 shades of an edge.
constexpr int kSamples = 8;

struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

Box BoxOf(const Shape& shape) {
    Box box{shape.points[0].x, shape.points[0].y, shape.points[0].x, shape.points[0].y};
    for (const Point& point : shape.points) {
        box.left = std::min(box.left, point.x);
        box.top = std::min(box.top, point.y);
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
    }
    if (shape.kind == Shape::Kind::Line) {
        const double reach = shape.width / 2;
        box = {box.left - reach, box.top - reach, box.right + reach, box.bottom + reach};
    }
    return box;
}

/// The winding number rule, so that a polygon that crosses itself stays filled.
bool InPolygon(const std::vector<Point>& points, Point at) {
    int winding = 0;
    for (std::size_t i = 0; i < points.size(); i++) {
        const Point& a = points[i];
        const Point& b = points[(i + 1) % points.size()];
        const double side = (b.x - a.x) * (at.y - a.y) - (at.x - a.x) * (b.y - a.y);
        if (a.y <= at.y && b.y > at.y && side > 0) winding++;
        if (a.y > at.y && b.y <= at.y && side < 0) winding--;
    }
    return winding != 0;
}

bool InEllipse(const Box& box, Point at) {
    const double radiusX = (box.right - box.left) / 2;
    const double radiusY = (box.bottom - box.top) / 2;
    if (radiusX <= 0 || radiusY <= 0) return false;
    const double x = (at.x - (box.left + radiusX)) / radiusX;
    const double y = (at.y - (box.top + radiusY)) / radiusY;
    return x * x + y * y <= 1;
}

/// Ends and bends are round.
bool OnLine(const std::vector<Point>& points, double width, Point at) {
    const double reach = width * width / 4;
    const Point* before = nullptr;
    for (const Point& b : points) {
        const Point& a = before ? *before : b;
        before = &b;
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double length = dx * dx + dy * dy;
        double along = 0;
        if (length > 0) {
            along = std::clamp(((at.x - a.x) * dx + (at.y - a.y) * dy) / length, 0.0, 1.0);
        }
        const double x = at.x - (a.x + along * dx);
        const double y = at.y - (a.y + along * dy);
        if (x * x + y * y <= reach) return true;
    }
    return false;
}

bool Covers(const Shape& shape, const Box& box, Point at) {
    switch (shape.kind) {
        case Shape::Kind::Polygon:
            return InPolygon(shape.points, at);
        case Shape::Kind::Ellipse:
            return InEllipse(box, at);
        case Shape::Kind::Line:
            return OnLine(shape.points, shape.width, at);
    }
    return false;
}

/// 0 to kSamples².
int CoverageOf(const Shape& shape, const Box& box, int pixelX, int pixelY, double unitsPerPixel) {
    int covered = 0;
    for (int sampleY = 0; sampleY < kSamples; sampleY++) {
        const double y = (pixelY + (sampleY + 0.5) / kSamples) * unitsPerPixel;
        if (y < box.top || y > box.bottom) continue;
        for (int sampleX = 0; sampleX < kSamples; sampleX++) {
            const double x = (pixelX + (sampleX + 0.5) / kSamples) * unitsPerPixel;
            if (x >= box.left && x <= box.right && Covers(shape, box, {x, y})) covered++;
        }
    }
    return covered;
}

/// Alpha, red, green, blue; colours premultiplied with alpha, all 0 to 1.
using Pixel = std::array<double, 4>;

Pixel Unpack(std::uint32_t color) {
    const double alpha = (color >> 24 & 0xFF) / 255.0;
    return {alpha, alpha * (color >> 16 & 0xFF) / 255.0, alpha * (color >> 8 & 0xFF) / 255.0,
            alpha * (color & 0xFF) / 255.0};
}

std::uint32_t Pack(const Pixel& pixel) {
    std::uint32_t packed = 0;
    for (const double channel : pixel) {
        packed = packed << 8 | static_cast<std::uint32_t>(std::lround(channel * 255.0));
    }
    return packed;
}

void Draw(std::vector<Pixel>& canvas, int size, const Shape& shape) {
    if (shape.points.empty()) return;
    const Box box = BoxOf(shape);
    const Pixel source = Unpack(shape.color);
    const double pixelsPerUnit = size / kGrid;
    const auto first = [&](double at) {
        return std::clamp(static_cast<int>(std::floor(at * pixelsPerUnit)), 0, size);
    };
    const auto last = [&](double at) {
        return std::clamp(static_cast<int>(std::ceil(at * pixelsPerUnit)), 0, size);
    };
    for (int y = first(box.top); y < last(box.bottom); y++) {
        for (int x = first(box.left); x < last(box.right); x++) {
            const int covered = CoverageOf(shape, box, x, y, kGrid / size);
            if (covered == 0) continue;
            const double share = static_cast<double>(covered) / (kSamples * kSamples);
            const double kept = 1 - source[0] * share;
            Pixel& target = canvas[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                                   static_cast<std::size_t>(x)];
            for (std::size_t i = 0; i < target.size(); i++) {
                target[i] = std::min(1.0, source[i] * share + target[i] * kept);
            }
        }
    }
}

}  // namespace

std::vector<std::uint32_t> Rasterize(const Icon& icon, int size) {
    if (size <= 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    std::vector<Pixel> canvas(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    for (const Shape& shape : icon.shapes) Draw(canvas, size, shape);
    std::vector<std::uint32_t> pixels(canvas.size());
    std::transform(canvas.begin(), canvas.end(), pixels.begin(), Pack);
    return pixels;
}

}  // namespace zv::forms

// Small pictures as shapes on a grid, drawn at whatever size the display needs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zv::forms {

struct Point {
    double x = 0;
    double y = 0;
};

/// A filled polygon, ellipse or a line with a width; coordinates on a 16 × 16 grid.
struct Shape {
    enum class Kind { Polygon, Ellipse, Line };
    Kind kind = Kind::Polygon;
    std::uint32_t color = 0xFF000000;  ///< 0xAARRGGBB
    std::vector<Point> points;         ///< Ellipse: two corners; Line: a chain
    double width = 0;                  ///< Line only
};

struct Icon {
    std::vector<Shape> shapes;
};

/// size × size pixels, rows from the top, 0xAARRGGBB with premultiplied alpha, edges smoothed.
std::vector<std::uint32_t> Rasterize(const Icon& icon, int size);

/// Icons by key, in the order added.
class ImageList {
 public:
    void Add(std::string key, Icon icon);
    int Count() const { return static_cast<int>(icons_.size()); }
    const Icon& At(int position) const {
        return icons_.at(static_cast<std::size_t>(position)).second;
    }
    const std::string& Key(int position) const {
        return icons_.at(static_cast<std::size_t>(position)).first;
    }
    /// Throws error 35601 for an unknown key.
    int Find(std::string_view key) const;

 private:
    std::vector<std::pair<std::string, Icon>> icons_;
};

}  // namespace zv::forms

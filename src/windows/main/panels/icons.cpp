#include "windows/main/panels/icons.h"

#include <cmath>
#include <numbers>

namespace zv::windows {
namespace {

using forms::Icon;
using forms::Point;
using forms::Shape;

constexpr std::uint32_t kInk = 0xFF44546A;
constexpr std::uint32_t kPaper = 0xFFFFFFFF;
constexpr std::uint32_t kRule = 0xFFA5B4C6;
constexpr std::uint32_t kFolderBack = 0xFFC98F1F;
constexpr std::uint32_t kFolderFront = 0xFFF6C65B;
constexpr std::uint32_t kBook = 0xFF2E75B6;
constexpr std::uint32_t kPerson = 0xFF7A5BA6;
constexpr std::uint32_t kCalendarHead = 0xFFC0504D;
constexpr std::uint32_t kNotDoneColor = 0xFFC55A11;
constexpr std::uint32_t kInHandColor = 0xFF2E75B6;
constexpr std::uint32_t kDoneColor = 0xFF3B8A3E;

Shape Polygon(std::uint32_t color, std::vector<Point> points) {
    return {Shape::Kind::Polygon, color, std::move(points), 0};
}

Shape Box(std::uint32_t color, double left, double top, double right, double bottom) {
    return Polygon(color, {{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

Shape Ellipse(std::uint32_t color, double left, double top, double right, double bottom) {
    return {Shape::Kind::Ellipse, color, {{left, top}, {right, bottom}}, 0};
}

Shape Line(std::uint32_t color, double width, std::vector<Point> points) {
    return {Shape::Kind::Line, color, std::move(points), width};
}

void Add(Icon& icon, Icon other) {
    for (Shape& shape : other.shapes) icon.shapes.push_back(std::move(shape));
}

// The kinds, each in the whole square.

Icon Sheet() {
    return {{Polygon(kInk, {{2, 0.5}, {9.5, 0.5}, {13, 4}, {13, 15.5}, {2, 15.5}}),
             Polygon(kPaper, {{3, 1.5}, {9, 1.5}, {12, 4.5}, {12, 14.5}, {3, 14.5}}),
             Polygon(kRule, {{9, 1.5}, {12, 4.5}, {9, 4.5}}),
             Line(kRule, 1, {{4.5, 6.5}, {10.5, 6.5}}), Line(kRule, 1, {{4.5, 9}, {10.5, 9}}),
             Line(kRule, 1, {{4.5, 11.5}, {8, 11.5}})}};
}

Icon Book() {
    return {{Box(kInk, 2, 1, 14, 15), Box(kBook, 4.5, 2, 13, 14), Box(kRule, 3, 2, 4, 14),
             Box(kPaper, 6, 4, 11.5, 7), Line(kInk, 0.8, {{7, 5.5}, {10.5, 5.5}})}};
}

Icon Person() {
    return {{Ellipse(kInk, 4.5, 0.5, 11.5, 7.5), Ellipse(kPaper, 5.5, 1.5, 10.5, 6.5),
             Polygon(kInk, {{1.5, 15}, {2.5, 10.5}, {5, 8.2}, {11, 8.2}, {13.5, 10.5}, {14.5, 15}}),
             Polygon(kPerson,
                     {{2.8, 14}, {3.5, 11}, {5.4, 9.2}, {10.6, 9.2}, {12.5, 11}, {13.2, 14}})}};
}

Icon Calendar() {
    return {{Box(kInk, 1.5, 2, 14.5, 15), Box(kPaper, 2.5, 6, 13.5, 14),
             Box(kCalendarHead, 2.5, 3, 13.5, 6), Line(kInk, 1.4, {{5, 0.8}, {5, 4}}),
             Line(kInk, 1.4, {{11, 0.8}, {11, 4}}), Box(kRule, 4, 7.5, 6, 9.3),
             Box(kRule, 7, 7.5, 9, 9.3), Box(kRule, 10, 7.5, 12, 9.3), Box(kRule, 4, 10.8, 6, 12.6),
             Box(kRule, 7, 10.8, 9, 12.6)}};
}

// The states, each in the lower right corner. They differ by what fills the ring.

Icon Ring(std::uint32_t color, std::uint32_t inside) {
    return {{Ellipse(kPaper, 6.6, 6.6, 16, 16), Ellipse(color, 7.4, 7.4, 15.6, 15.6),
             Ellipse(inside, 8.9, 8.9, 14.1, 14.1)}};
}

Icon NotDoneMark() {
    return Ring(kNotDoneColor, kPaper);
}

Icon InHandMark() {
    Icon icon = Ring(kInHandColor, kPaper);
    std::vector<Point> half;
    constexpr int kSteps = 12;
    constexpr double kMiddle = 11.5;
    constexpr double kRadius = 3.2;
    for (int i = 0; i <= kSteps; i++) {
        const double angle = std::numbers::pi * (static_cast<double>(i) / kSteps - 0.5);
        half.push_back({kMiddle + kRadius * std::cos(angle), kMiddle + kRadius * std::sin(angle)});
    }
    icon.shapes.push_back(Polygon(kInHandColor, std::move(half)));
    return icon;
}

Icon DoneMark() {
    Icon icon = Ring(kDoneColor, kDoneColor);
    icon.shapes.push_back(Line(kPaper, 1.4, {{9.3, 11.7}, {10.9, 13.3}, {13.8, 9.7}}));
    return icon;
}

// Of a plan: an arrow that comes round again.
Icon RecurrenceMark() {
    Icon icon{{Ellipse(kPaper, 6.6, 6.6, 16, 16)}};
    std::vector<Point> ring;
    constexpr int kSteps = 18;
    constexpr double kMiddle = 11.5;
    constexpr double kRadius = 3.4;
    constexpr double kOpen = 0.8;
    for (int i = 0; i <= kSteps; i++) {
        const double angle =
            kOpen + (2 * std::numbers::pi - kOpen) * static_cast<double>(i) / kSteps;
        ring.push_back({kMiddle + kRadius * std::cos(angle), kMiddle + kRadius * std::sin(angle)});
    }
    icon.shapes.push_back(Line(kPerson, 1.5, std::move(ring)));
    icon.shapes.push_back(Polygon(kPerson, {{12.6, 11.2}, {16, 11.2}, {14.6, 14.4}}));
    return icon;
}

// A folder with the kind drawn small on its front.
Icon Group(const Icon& kind) {
    Icon icon{
        {Polygon(kFolderBack, {{0.5, 3}, {6, 3}, {7.5, 4.8}, {14.5, 4.8}, {14.5, 14}, {0.5, 14}}),
         Polygon(kFolderFront, {{0.5, 6}, {15.5, 6}, {14.5, 14.5}, {0.5, 14.5}})}};
    constexpr double kScale = 0.5;
    constexpr double kLeft = 7;
    constexpr double kTop = 7.5;
    Icon small = kind;
    for (Shape& shape : small.shapes) {
        for (Point& point : shape.points) {
            point = {kLeft + point.x * kScale, kTop + point.y * kScale};
        }
        shape.width *= kScale;
    }
    Add(icon, std::move(small));
    return icon;
}

void AddKind(forms::ImageList& images, const std::string& name, const Icon& kind,
             Icon last = DoneMark()) {
    images.Add(name + "1", Group(kind));
    Icon marks[] = {NotDoneMark(), InHandMark(), std::move(last)};
    for (int state = 0; state < 3; state++) {
        Icon icon = kind;
        Add(icon, std::move(marks[state]));
        images.Add(name + std::to_string(state + 2), std::move(icon));
    }
}

forms::ImageList MakeTreeImages() {
    forms::ImageList images;
    AddKind(images, "task", Sheet());
    AddKind(images, "diary", Book());
    AddKind(images, "guest", Person());
    // A plan is never done: it goes on making items.
    AddKind(images, "event", Calendar(), RecurrenceMark());
    images.Add("date", Calendar());
    return images;
}

}  // namespace

const forms::ImageList& TreeImages() {
    static const forms::ImageList images = MakeTreeImages();
    return images;
}

}  // namespace zv::windows

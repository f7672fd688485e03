// A page as painters draw it: texts, lines and grounds in points (1/72 inch) from the page's upper
// left corner.
#pragma once

#include <string>
#include <vector>

namespace zv::report {

/// 0 black .. 1 white.
using Grey = double;

struct TextRun {
    double x = 0;
    double baseline = 0;
    double size = 0;
    bool bold = false;
    Grey grey = 0;
    std::string text;
};

struct Rule {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    double width = 0.5;
    Grey grey = 0;
};

struct Ground {
    double x = 0, y = 0, width = 0, height = 0;
    Grey grey = 1;
};

struct Page {
    double width = 0;
    double height = 0;
    std::vector<Ground> grounds;  ///< drawn first
    std::vector<Rule> rules;
    std::vector<TextRun> texts;  ///< drawn last
};

}  // namespace zv::report

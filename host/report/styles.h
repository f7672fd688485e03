// Measures of the printed pages, in points.
#pragma once

#include "report/page.h"

namespace zv::report::style {

inline constexpr double kTextSize = 9.5;
/// Tables with many columns are printed smaller, down to this.
inline constexpr double kSmallestTextSize = 5;
inline constexpr double kTitleSize = 18;
inline constexpr double kCompanySize = 11;
inline constexpr double kSubtitleSize = 10;
inline constexpr double kRunningSize = 8.5;  ///< heading of later pages, footer

/// Of the size of a text: the distance of two lines, and from a line's top to its baseline.
inline constexpr double kLineHeight = 1.38;
inline constexpr double kAscent = 1.06;

inline constexpr double kCellPadX = 4;
inline constexpr double kCellPadY = 2.5;

inline constexpr Grey kBlack = 0;
inline constexpr Grey kSoft = 0.35;      ///< what stands beside the contents
inline constexpr Grey kHairline = 0.72;  ///< between rows
inline constexpr Grey kCaptionGround = 0.93;
inline constexpr double kThin = 0.4;
inline constexpr double kStrong = 0.9;

}  // namespace zv::report::style

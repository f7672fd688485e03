// How the user wants pages: paper, direction, margins, and whether empty columns are printed.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "resources/settings.h"

namespace zv::report {

enum class Paper { A4, A3, A5, B5, Letter, Legal };
/// AsNeeded: upright, across when the columns of a table need it.
enum class Direction { AsNeeded, Upright, Across };

inline constexpr std::array kPapers{Paper::A4, Paper::A3,     Paper::A5,
                                    Paper::B5, Paper::Letter, Paper::Legal};

/// In millimetres.
struct PaperSize {
    std::string_view name;
    double shortSide = 0;
    double longSide = 0;
};
PaperSize SizeOf(Paper paper);

/// In millimetres, each from kLeastMargin to kMostMargin.
struct Margins {
    int left = 16;
    int top = 16;
    int right = 16;
    int bottom = 16;
    bool operator==(const Margins&) const = default;
};
inline constexpr int kLeastMargin = 5;
inline constexpr int kMostMargin = 40;

struct PageSetup {
    Paper paper = Paper::A4;
    Direction direction = Direction::AsNeeded;
    Margins margins;
    bool leavesOutEmpty = false;  ///< columns of a table that hold nothing in any row
    bool operator==(const PageSetup&) const = default;
};

/// A margin as typed; nothing for what is no whole number or out of bounds.
std::optional<int> ReadMargin(std::string_view text);

/// What is kept on this workstation; what is not there, or cannot be understood, is the usual.
PageSetup LoadPageSetup(const resources::SettingsStore& settings);
/// Keeps what differs from what is kept. Throws what saving throws.
void SavePageSetup(resources::SettingsStore& settings, const PageSetup& setup);

/// A page and where its margins end, in points from its upper left corner.
struct PageArea {
    double width = 0;
    double height = 0;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    double Room() const { return right - left; }
};
PageArea AreaOf(const PageSetup& setup, bool isAcross);

}  // namespace zv::report

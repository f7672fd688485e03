#include "report/page_setup.h"

#include <charconv>
#include <utility>

#include "base/text.h"

namespace zv::report {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;

constexpr std::string_view kPaperKey = "PrintPaper";
constexpr std::string_view kDirectionKey = "PrintDirection";
constexpr std::string_view kMarginsKey = "PrintMargins";
constexpr std::string_view kWithoutEmptyKey = "PrintWithoutEmpty";

// In the order of the enumeration.
constexpr std::array<PaperSize, kPapers.size()> kSizes{{{"A4", 210, 297},
                                                        {"A3", 297, 420},
                                                        {"A5", 148, 210},
                                                        {"B5", 182, 257},
                                                        {"Letter", 215.9, 279.4},
                                                        {"Legal", 215.9, 355.6}}};

std::string Kept(const resources::SettingsStore& settings, std::string_view key) {
    return settings.Get(resources::kApplication, resources::kTaskSection, key, "");
}

std::optional<int> ReadNumber(std::string_view text) {
    text = text::Trim(text);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

Paper ReadPaper(std::string_view text, Paper usual) {
    for (const Paper paper : kPapers) {
        if (text::EqualsIgnoreCase(SizeOf(paper).name, text::Trim(text))) return paper;
    }
    return usual;
}

Direction ReadDirection(std::string_view text, Direction usual) {
    const auto number = ReadNumber(text);
    if (!number || *number < 0 || *number > static_cast<int>(Direction::Across)) return usual;
    return static_cast<Direction>(*number);
}

// One that is wrong makes all four the usual ones: a sheet with three margins of somebody's choice
// is nobody's choice.
Margins ReadMargins(std::string_view text, const Margins& usual) {
    const std::vector<std::string> parts = text::Split(text, ",");
    Margins margins;
    int* const sides[] = {&margins.left, &margins.top, &margins.right, &margins.bottom};
    if (parts.size() != std::size(sides)) return usual;
    for (std::size_t i = 0; i < parts.size(); i++) {
        const auto margin = ReadMargin(parts[i]);
        if (!margin) return usual;
        *sides[i] = *margin;
    }
    return margins;
}

std::string MarginsText(const Margins& margins) {
    std::string text;
    for (const int side : {margins.left, margins.top, margins.right, margins.bottom}) {
        if (!text.empty()) text += ',';
        text += std::to_string(side);
    }
    return text;
}

}  // namespace

PaperSize SizeOf(Paper paper) {
    return kSizes.at(static_cast<std::size_t>(paper));
}

std::optional<int> ReadMargin(std::string_view text) {
    const auto number = ReadNumber(text);
    if (!number || *number < kLeastMargin || *number > kMostMargin) return std::nullopt;
    return number;
}

PageSetup LoadPageSetup(const resources::SettingsStore& settings) {
    const PageSetup usual;
    PageSetup setup;
    setup.paper = ReadPaper(Kept(settings, kPaperKey), usual.paper);
    setup.direction = ReadDirection(Kept(settings, kDirectionKey), usual.direction);
    setup.margins = ReadMargins(Kept(settings, kMarginsKey), usual.margins);
    setup.leavesOutEmpty = ReadNumber(Kept(settings, kWithoutEmptyKey)) == 1;
    return setup;
}

void SavePageSetup(resources::SettingsStore& settings, const PageSetup& setup) {
    const PageSetup kept = LoadPageSetup(settings);
    const auto save = [&](bool differs, std::string_view key, std::string_view text) {
        if (!differs) return;
        settings.Save(resources::kApplication, resources::kTaskSection, key, text);
    };
    save(setup.paper != kept.paper, kPaperKey, SizeOf(setup.paper).name);
    save(setup.direction != kept.direction, kDirectionKey,
         std::to_string(static_cast<int>(setup.direction)));
    save(setup.margins != kept.margins, kMarginsKey, MarginsText(setup.margins));
    save(setup.leavesOutEmpty != kept.leavesOutEmpty, kWithoutEmptyKey,
         setup.leavesOutEmpty ? "1" : "0");
}

PageArea AreaOf(const PageSetup& setup, bool isAcross) {
    const PaperSize size = SizeOf(setup.paper);
    PageArea area;
    area.width = size.shortSide * kPointsPerMillimetre;
    area.height = size.longSide * kPointsPerMillimetre;
    if (isAcross) std::swap(area.width, area.height);
    area.left = setup.margins.left * kPointsPerMillimetre;
    area.top = setup.margins.top * kPointsPerMillimetre;
    area.right = area.width - setup.margins.right * kPointsPerMillimetre;
    area.bottom = area.height - setup.margins.bottom * kPointsPerMillimetre;
    return area;
}

}  // namespace zv::report

#include "report/column_widths.h"

#include <algorithm>
#include <cctype>
#include <numeric>

#include "base/text.h"
#include "report/styles.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr std::size_t kLookedAt = 3000;       // rows that decide the widths
constexpr std::size_t kLookedAtOfText = 400;  // bytes of a cell; longer texts wrap anyway
constexpr double kWidestByContents = 190;     // at the normal size
constexpr double kWidestPart = 75;

struct Need {
    double natural = 0;  // without padding, at size 1
    double least = 0;
    bool isNumeric = false;
};

bool IsNumber(std::string_view text) {
    if (text.empty()) return false;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); i++) {
        const char c = text[i];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            digits++;
        } else if (!(c == '.' || c == ',' || ((c == '-' || c == '+') && i == 0))) {
            return false;
        }
    }
    // A code with a leading zero is no quantity.
    return digits > 0 && !(text.size() > 1 && text[0] == '0' && text[1] != '.');
}

std::string_view Beginning(const std::string& text) {
    std::string_view part(text);
    if (part.size() > kLookedAtOfText) part = part.substr(0, kLookedAtOfText);
    return part;
}

Need NeedOf(const Table& table, std::size_t column, const FontSet& fonts) {
    const Measure measure = [&](char32_t c) { return static_cast<double>(fonts.Find(c).advance); };
    Need need;
    bool hasValue = false;
    need.isNumeric = true;
    const auto take = [&](std::string_view raw) {
        const std::string text = CleanText(raw);
        double widest = 0;
        for (const std::string& line : text::Split(text, "\n")) {
            widest = std::max(widest, fonts.Width(line, 1));
        }
        need.natural = std::max(need.natural, widest);
        need.least = std::max(need.least, WidestPart(text, measure));
    };
    take(table.columns[column].heading);
    const std::size_t rows = std::min(table.rows.size(), kLookedAt);
    for (std::size_t row = 0; row < rows; row++) {
        const auto& cells = table.rows[row];
        if (column >= cells.size() || cells[column].empty()) continue;
        take(Beginning(cells[column]));
        hasValue = true;
        need.isNumeric = need.isNumeric && IsNumber(cells[column]);
    }
    need.isNumeric = need.isNumeric && hasValue;
    return need;
}

double Sum(const std::vector<double>& values) {
    return std::accumulate(values.begin(), values.end(), 0.0);
}

// From `natural` down towards `least`, each column giving what it has above its least.
std::vector<double> Squeeze(const std::vector<double>& natural, const std::vector<double>& least,
                            double room) {
    const double give = Sum(natural) - Sum(least);
    const double part = give > 0 ? std::clamp((room - Sum(least)) / give, 0.0, 1.0) : 0;
    std::vector<double> widths(natural.size());
    for (std::size_t i = 0; i < natural.size(); i++) {
        widths[i] = least[i] + (natural[i] - least[i]) * part;
    }
    return widths;
}

void Stretch(std::vector<double>& widths, double room) {
    const double sum = Sum(widths);
    if (sum <= 0) return;
    for (double& width : widths) width *= room / sum;
}

}  // namespace

ColumnPlan PlanColumns(const Table& table, const FontSet& fonts) {
    constexpr double kPad = 2 * style::kCellPadX;
    constexpr double kUpright = style::kShortSide - 2 * style::kMargin;
    constexpr double kAcross = style::kLongSide - 2 * style::kMargin;
    ColumnPlan plan;
    plan.textSize = style::kTextSize;
    std::vector<Need> needs;
    for (std::size_t i = 0; i < table.columns.size(); i++) {
        needs.push_back(NeedOf(table, i, fonts));
        plan.isRightAligned.push_back(needs.back().isNumeric);
    }
    std::vector<double> natural(needs.size());
    std::vector<double> least(needs.size());
    const auto atSize = [&](double size) {
        const double scale = size / style::kTextSize;
        for (std::size_t i = 0; i < needs.size(); i++) {
            const double longest = std::min(needs[i].least * size, kWidestPart * scale);
            natural[i] = std::min(needs[i].natural * size, kWidestByContents * scale) + kPad;
            if (table.columns[i].width > 0) natural[i] = table.columns[i].width * scale;
            // A wish that would break a word or a date gives way to it.
            least[i] = std::max(longest, std::min(needs[i].natural, 3.0) * size) + kPad;
            natural[i] = std::max(natural[i], least[i]);
        }
    };
    atSize(plan.textSize);
    plan.isLandscape = Sum(natural) > kUpright;
    const double room = plan.isLandscape ? kAcross : kUpright;
    while (Sum(least) > room && plan.textSize > style::kSmallestTextSize) {
        plan.textSize -= 0.5;
        atSize(plan.textSize);
    }
    plan.widths = Sum(natural) > room ? Squeeze(natural, least, room) : natural;
    Stretch(plan.widths, room);
    return plan;
}

}  // namespace zv::report

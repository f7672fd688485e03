#include "report/column_widths.h"

#include <algorithm>
#include <cctype>
#include <numeric>

#include "base/text.h"
#include "report/styles.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr std::size_t kMeasured = 3000;       // rows whose cells are measured
constexpr std::size_t kMeasuredOfText = 400;  // bytes of a cell; longer texts wrap anyway
// At the normal size, without padding:
constexpr double kLongText = 110;     // what needs more shares the room that is left
constexpr double kComfortable = 190;  // of such a column, before the page is laid across
constexpr double kMostWeight = 600;   // in the sharing; a novel takes no more than a long letter
constexpr double kWidestPart = 75;
// In sizes of a letter:
constexpr double kLeastOfLongText = 6;
constexpr double kLeastOfShortText = 3;
constexpr double kMostOfHeading = 6;  // longer ones wrap rather than widen a column
constexpr double kEmptyColumn = 2;

// What a column needs at size 1, without padding.
struct Need {
    double natural = 0;
    double least = 0;
    bool isNumeric = false;
    bool isEmpty = false;
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

bool HoldsNothing(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

// The first row from which on a cell holds something; the number of rows when none does.
std::size_t FirstFilled(const Table& table, std::size_t column) {
    std::size_t row = 0;
    while (row < table.rows.size() && HoldsNothing(table.Printed(row, column))) row++;
    return row;
}

class Measuring {
 public:
    explicit Measuring(const FontSet& fonts)
        : fonts_(fonts),
          measure_([&fonts](char32_t c) { return static_cast<double>(fonts.Find(c).advance); }) {}

    void Take(std::string_view raw) {
        if (raw.size() > kMeasuredOfText) raw = raw.substr(0, kMeasuredOfText);
        const std::string text = CleanText(raw);
        for (const std::string& line : text::Split(text, "\n")) {
            natural = std::max(natural, fonts_.Width(line, 1));
        }
        least = std::max(least, WidestPart(text, measure_));
    }

    double natural = 0;
    double least = 0;

 private:
    const FontSet& fonts_;
    Measure measure_;
};

Need NeedOf(const Table& table, std::size_t column, const FontSet& fonts) {
    Measuring heading(fonts);
    heading.Take(table.columns[column].heading);
    const std::size_t first = FirstFilled(table, column);
    Need need;
    need.isEmpty = first == table.rows.size();
    if (need.isEmpty) {
        need.least = std::max(kEmptyColumn, heading.least);
        need.natural = need.least = std::min(need.least, std::max(heading.natural, kEmptyColumn));
        return need;
    }
    Measuring contents(fonts);
    need.isNumeric = true;
    const auto take = [&](const std::string& text) {
        contents.Take(text);
        need.isNumeric = need.isNumeric && IsNumber(text);
    };
    take(table.Printed(first, column));
    const std::size_t step = (table.rows.size() + kMeasured - 1) / kMeasured;
    for (std::size_t row = first + step; row < table.rows.size(); row += step) {
        const std::string text = table.Printed(row, column);
        if (!HoldsNothing(text)) take(text);
    }
    need.natural = std::max(contents.natural, std::min(heading.natural, kMostOfHeading));
    need.least = std::max(contents.least, heading.least);
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

// Gives `room` to columns with long texts: those that fit into an equal share stand on one line,
// the others share what is left by what they hold, none below its least. What nobody needs is
// shared all the same.
void Share(std::vector<double>& widths, const std::vector<std::size_t>& columns,
           const std::vector<double>& natural, const std::vector<double>& least, double room) {
    std::vector<std::size_t> open = columns;
    const auto weights = [&](const std::vector<std::size_t>& takers) {
        double sum = 0;
        for (const std::size_t i : takers) sum += std::min(natural[i], kMostWeight);
        return sum;
    };
    const auto part = [&](std::size_t i, const std::vector<std::size_t>& takers) {
        return room * std::min(natural[i], kMostWeight) / weights(takers);
    };
    const auto settle = [&](const auto& bound, const auto& fits) {
        for (auto at = open.begin(); at != open.end();) {
            if (!fits(*at)) {
                ++at;
                continue;
            }
            widths[*at] = bound[*at];
            room -= bound[*at];
            open.erase(at);
            at = open.begin();
        }
    };
    settle(natural,
           [&](std::size_t i) { return natural[i] <= room / static_cast<double>(open.size()); });
    settle(least, [&](std::size_t i) { return part(i, open) < least[i]; });
    const bool allFit = open.empty();
    const std::vector<std::size_t>& takers = allFit ? columns : open;
    for (const std::size_t i : takers) {
        widths[i] = part(i, takers) + (allFit ? widths[i] : 0);
    }
}

class Planning {
 public:
    Planning(const Table& table, const FontSet& fonts, const PageSetup& setup) : setup_(setup) {
        for (std::size_t i = 0; i < table.columns.size(); i++) {
            needs_.push_back(NeedOf(table, i, fonts));
            if (needs_.back().isEmpty && setup.leavesOutEmpty) continue;
            printed_.push_back(i);
        }
        if (!printed_.empty()) return;
        // A table in which nothing stands has its headings at least.
        for (std::size_t i = 0; i < needs_.size(); i++) printed_.push_back(i);
    }

    ColumnPlan Plan() {
        ColumnPlan plan;
        plan.textSize = style::kTextSize;
        AtSize(plan.textSize);
        plan.isLandscape = setup_.direction == Direction::Across ||
                           (setup_.direction == Direction::AsNeeded &&
                            Sum(comfortable_) > AreaOf(setup_, false).Room());
        const double room = AreaOf(setup_, plan.isLandscape).Room();
        while (Sum(least_) > room && plan.textSize > style::kSmallestTextSize) {
            plan.textSize -= 0.5;
            AtSize(plan.textSize);
        }
        const std::vector<double> widths = Widths(room);
        for (std::size_t i = 0; i < printed_.size(); i++) {
            plan.columns.push_back({printed_[i], widths[i], needs_[printed_[i]].isNumeric});
        }
        return plan;
    }

 private:
    void AtSize(double size) {
        const double scale = size / style::kTextSize;
        constexpr double kPad = 2 * style::kCellPadX;
        const std::size_t count = printed_.size();
        natural_.assign(count, 0);
        comfortable_.assign(count, 0);
        least_.assign(count, 0);
        long_.clear();
        for (std::size_t i = 0; i < count; i++) {
            const Need& need = needs_[printed_[i]];
            const double natural = need.natural * size;
            const double part = std::min(need.least * size, kWidestPart * scale);
            const bool isLong = natural > kLongText * scale;
            const double letters = (isLong ? kLeastOfLongText : kLeastOfShortText) * size;
            if (isLong) long_.push_back(i);
            natural_[i] = std::max(natural, part) + kPad;
            comfortable_[i] = std::max(std::min(natural, kComfortable * scale), part) + kPad;
            least_[i] = std::max(part, std::min(natural, letters)) + kPad;
        }
    }

    std::vector<double> Widths(double room) const {
        std::vector<double> widths = natural_;
        double rest = room - Sum(natural_);
        double leastRest = room - Sum(natural_);
        for (const std::size_t i : long_) {
            rest += natural_[i];
            leastRest += natural_[i] - least_[i];
        }
        if (leastRest < 0) {
            widths = Squeeze(comfortable_, least_, room);
            Stretch(widths, room);
        } else if (!long_.empty()) {
            Share(widths, long_, natural_, least_, rest);
        } else {
            StretchFilled(widths, room);
        }
        return widths;
    }

    // Without long texts all columns that hold something share what is left.
    void StretchFilled(std::vector<double>& widths, double room) const {
        double filled = 0;
        double empty = 0;
        for (std::size_t i = 0; i < widths.size(); i++) {
            (needs_[printed_[i]].isEmpty ? empty : filled) += widths[i];
        }
        if (filled <= 0) return Stretch(widths, room);
        for (std::size_t i = 0; i < widths.size(); i++) {
            if (!needs_[printed_[i]].isEmpty) widths[i] *= (room - empty) / filled;
        }
    }

    static void Stretch(std::vector<double>& widths, double room) {
        const double sum = Sum(widths);
        if (sum <= 0) return;
        for (double& width : widths) width *= room / sum;
    }

    const PageSetup& setup_;
    std::vector<Need> needs_;           // of all columns of the table
    std::vector<std::size_t> printed_;  // the columns below, by their positions in the table
    std::vector<double> natural_, comfortable_, least_;  // at the size at hand, with padding
    std::vector<std::size_t> long_;
};

}  // namespace

bool IsEmptyColumn(const Table& table, std::size_t column) {
    return FirstFilled(table, column) == table.rows.size();
}

ColumnPlan PlanColumns(const Table& table, const FontSet& fonts, const PageSetup& setup) {
    return Planning(table, fonts, setup).Plan();
}

}  // namespace zv::report

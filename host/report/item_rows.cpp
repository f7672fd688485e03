#include "report/item_rows.h"

#include <algorithm>

#include "base/text.h"
#include "report/styles.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr double kNarrowestCaption = 70;
constexpr double kWidestCaption = 120;
constexpr double kSize = style::kTextSize + 0.5;

bool IsLong(const Field& field, const std::string& text, const FontSet& fonts, double room) {
    if (text::EqualsIgnoreCase(field.key, "TaskTitle")) return true;
    if (text::EqualsIgnoreCase(field.key, "TaskContent")) return true;
    return text.find('\n') != std::string::npos || fonts.Width(text, kSize) > room;
}

}  // namespace

double ItemRows::TextSize() const {
    return kSize;
}

ItemRows::ItemRows(const std::vector<Field>& fields, const FontSet& fonts, double width) {
    double caption = kNarrowestCaption;
    for (const Field& field : fields) {
        const double needed =
            fonts.Width(CleanText(field.caption), kSize) + 2 * style::kCellPadX + 2;
        caption = std::min(std::max(caption, needed), kWidestCaption);
    }
    const double half = width / 2;
    const auto cells = [&](const Field& field, double x, double room) {
        return Row{{x, caption, CleanText(field.caption), Align::Left, true},
                   {x + caption, room - caption, CleanText(field.text), Align::Left, false}};
    };
    for (std::size_t i = 0; i < fields.size(); i++) {
        const double room = half - caption - 2 * style::kCellPadX;
        const auto isLong = [&](const Field& field) {
            return IsLong(field, CleanText(field.text), fonts, room);
        };
        if (isLong(fields[i]) || i + 1 == fields.size() || isLong(fields[i + 1])) {
            rows_.push_back(cells(fields[i], 0, width));
            continue;
        }
        Row pair = cells(fields[i], 0, half);
        for (Cell& cell : cells(fields[i + 1], half, half)) pair.push_back(std::move(cell));
        rows_.push_back(std::move(pair));
        i++;
    }
}

}  // namespace zv::report

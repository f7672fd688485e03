#include "report/item_rows.h"

#include <algorithm>

#include "base/text.h"
#include "report/styles.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

constexpr double kNarrowestCaption = 80;
constexpr double kWidestCaptionPart = 0.3;  // of the body
constexpr double kSize = style::kTextSize + 0.5;

}  // namespace

double ItemRows::TextSize() const {
    return kSize;
}

ItemRows::ItemRows(const std::vector<Field>& fields, const FontSet& fonts, double width) {
    double caption = std::min(kNarrowestCaption, width * kWidestCaptionPart);
    for (const Field& field : fields) {
        const double needed =
            fonts.Width(CleanText(field.caption), kSize) + 2 * style::kCellPadX + 2;
        caption = std::clamp(needed, caption, width * kWidestCaptionPart);
    }
    for (const Field& field : fields) {
        const std::string name = CleanText(field.caption);
        const std::string value = CleanText(field.text);
        if (text::EqualsIgnoreCase(field.key, "TaskContent")) {
            rows_.push_back({{0, width, name, Align::Left, true}});
            rows_.push_back({{0, width, value, Align::Left, false}});
        } else {
            rows_.push_back({{0, caption, name, Align::Left, true},
                             {caption, width - caption, value, Align::Left, false}});
        }
    }
}

bool ItemRows::KeepsWithNext(std::size_t row) const {
    return rows_[row].size() == 1 && rows_[row].front().isCaption;
}

}  // namespace zv::report

#include "report/document.h"

#include <algorithm>

#include "base/text.h"
#include "forms/sign.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

bool All(const std::string& raw, const std::function<bool(char32_t)>& accepts) {
    const std::string text = CleanText(raw);
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = text::NextCodePoint(text, position);
        if (c != U'\n' && !accepts(c)) return false;
    }
    return true;
}

}  // namespace

std::string Table::Printed(std::size_t row, std::size_t column) const {
    const std::string text = column < rows[row].size() ? rows[row][column] : std::string();
    return column == signColumn && row < signs.size() ? forms::WithSign(text, signs[row]) : text;
}

bool AllCharacters(const Document& document, const std::function<bool(char32_t)>& accepts) {
    for (const std::string* text : {&document.company, &document.title, &document.subtitle,
                                    &document.asked, &document.user}) {
        if (!All(*text, accepts)) return false;
    }
    for (const Field& field : document.fields) {
        if (!All(field.caption, accepts) || !All(field.text, accepts)) return false;
    }
    for (const Column& column : document.table.columns) {
        if (!All(column.heading, accepts)) return false;
    }
    for (const auto& row : document.table.rows) {
        for (const std::string& text : row) {
            if (!All(text, accepts)) return false;
        }
    }
    return std::all_of(document.table.signs.begin(), document.table.signs.end(),
                       [&](const std::string& sign) { return All(sign, accepts); });
}

}  // namespace zv::report

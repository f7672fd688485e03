#include "changes/row_text.h"

#include <cmath>
#include <utility>

#include "base/errors.h"
#include "base/number.h"
#include "base/text.h"

namespace zv::changes {
namespace {

constexpr std::pair<char, char> kEscapes[] = {{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}};

std::string Escaped(std::string_view value) {
    std::string text;
    for (const char c : value) {
        bool plain = true;
        for (const auto& [meant, written] : kEscapes) {
            if (c != meant) continue;
            text.append({'\\', written});
            plain = false;
        }
        if (plain) text += c;
    }
    return text;
}

std::string Unescaped(std::string_view text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); i++) {
        char c = text[i];
        if (c == '\\' && i + 1 < text.size()) {
            for (const auto& [meant, written] : kEscapes) {
                if (text[i + 1] == written) c = meant;
            }
            i++;
        }
        value += c;
    }
    return value;
}

}  // namespace

std::string RowText(const Table& table, const Fields& fields) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); i++) {
        if (!fields[i]) continue;
        if (!text.empty()) text += '\n';
        text += table.columns[i].name;
        if (!fields[i]->IsNull()) text.append("=").append(Escaped(fields[i]->ToText()));
    }
    return text;
}

Fields FieldsOf(const Table& table, std::string_view text) {
    Fields fields(table.columns.size());
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::size_t equals = line.find('=');
        const std::string_view name = line.substr(0, equals);
        for (std::size_t i = 0; i < fields.size(); i++) {
            if (table.columns[i].name != name) continue;
            fields[i] = equals == std::string_view::npos
                            ? store::Value()
                            : ValueOf(table.columns[i], Unescaped(line.substr(equals + 1)));
        }
    }
    return fields;
}

store::Value ValueOf(const store::Column& column, std::string_view text) {
    store::Value value(text);
    if (column.kind == store::ColumnKind::Text) return value;
    try {
        if (column.kind == store::ColumnKind::Date) return value.ToDate();
        const double number = value.ToDouble();
        if (number == std::trunc(number) && std::abs(number) < 1e15) {
            return static_cast<std::int64_t>(number);
        }
        return number;
    } catch (const RuntimeError&) {
        return value;
    }
}

}  // namespace zv::changes

#include "items/list_fields.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace zv::items {
namespace {

bool IsIdentifier(std::string_view name) {
    const auto letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    return !name.empty() && letter(name.front()) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return letter(c) || digit(c); });
}

std::string CaptionOf(const suite::FieldCaption& described, std::int16_t language) {
    if (!described.caption.empty()) return described.caption;
    const Field* field = FindField(described.field);
    return field && field->IsListed() ? field->caption.Text(language) : described.field;
}

}  // namespace

FieldKind KindOfField(std::string_view field) {
    if (text::EqualsIgnoreCase(field, "fID")) return FieldKind::Number;
    const Field* known = FindField(field);
    return known ? known->kind : FieldKind::Text;
}

std::vector<ListField> ListFields(std::vector<suite::FieldCaption> described,
                                  std::int16_t language) {
    if (described.empty()) {
        for (const Field* field : ListedFields()) {
            described.push_back({std::string(field->column), {}});
        }
    }
    std::vector<ListField> fields;
    for (const suite::FieldCaption& entry : described) {
        if (!IsIdentifier(entry.field)) continue;
        fields.push_back({entry.field, CaptionOf(entry, language), KindOfField(entry.field)});
    }
    return fields;
}

}  // namespace zv::items

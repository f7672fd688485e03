#include "reports/list_fields.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "reports/field_captions.h"

namespace zv::reports {
namespace {

bool IsIdentifier(std::string_view name) {
    const auto letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    return !name.empty() && letter(name.front()) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return letter(c) || digit(c); });
}

std::string CaptionOf(const Session& session, const FieldCaption& described) {
    if (!described.caption.empty()) return described.caption;
    const items::Field* field = items::FindField(described.field);
    return field && field->IsListed() ? field->caption.Text(session.state.Language)
                                      : described.field;
}

}  // namespace

FieldKind KindOfField(std::string_view field) {
    if (text::EqualsIgnoreCase(field, "fID")) return FieldKind::Number;
    const items::Field* known = items::FindField(field);
    return known ? known->kind : FieldKind::Text;
}

std::vector<ListField> ReadListFields(Session& session) {
    std::vector<FieldCaption> described = ReadFieldCaptions(session);
    if (described.empty()) {
        for (const items::Field* field : items::ListedFields()) {
            described.push_back({std::string(field->column), {}});
        }
    }
    std::vector<ListField> fields;
    for (const FieldCaption& entry : described) {
        if (!IsIdentifier(entry.field)) continue;
        fields.push_back({entry.field, CaptionOf(session, entry), KindOfField(entry.field)});
    }
    return fields;
}

}  // namespace zv::reports

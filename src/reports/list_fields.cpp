#include "reports/list_fields.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "reports/field_captions.h"
#include "reports/item_names.h"

namespace zv::reports {
namespace {

struct Kind {
    std::string_view field;
    FieldKind kind;
};
constexpr auto kKinds = std::to_array<Kind>({
    {"fID", FieldKind::Number},
    {"taskID", FieldKind::Number},
    {"taskTime", FieldKind::Date},
    {"tDuring1", FieldKind::Date},
    {"tDuring2", FieldKind::Date},
    {"fType", FieldKind::ItemKind},
    {"tDone", FieldKind::State},
});

bool IsIdentifier(std::string_view name) {
    const auto letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    return !name.empty() && letter(name.front()) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return letter(c) || digit(c); });
}

auto Named(std::string_view name) {
    return [name](const auto& entry) { return text::EqualsIgnoreCase(entry.field, name); };
}

std::string CaptionOf(const Session& session, const FieldCaption& described) {
    if (!described.caption.empty()) return described.caption;
    std::string own = DesignCaption(session, described.field);
    return own.empty() ? described.field : own;
}

}  // namespace

FieldKind KindOfField(std::string_view field) {
    const auto known = std::find_if(kKinds.begin(), kKinds.end(), Named(field));
    return known == kKinds.end() ? FieldKind::Text : known->kind;
}

std::vector<ListField> ReadListFields(Session& session) {
    std::vector<FieldCaption> described = ReadFieldCaptions(session);
    if (described.empty()) {
        for (std::string& field : CaptionedFields()) described.push_back({std::move(field), {}});
    }
    std::vector<ListField> fields;
    for (const FieldCaption& entry : described) {
        if (!IsIdentifier(entry.field)) continue;
        fields.push_back({entry.field, CaptionOf(session, entry), KindOfField(entry.field)});
    }
    return fields;
}

}  // namespace zv::reports

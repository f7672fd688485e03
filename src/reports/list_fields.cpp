#include "reports/list_fields.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "reports/field_captions.h"
#include "resources/design_texts.h"

namespace zv::reports {
namespace {

using resources::DesignText;

constexpr std::int16_t kTitleText = 7;
constexpr std::int16_t kDoerText = 10;
constexpr std::int16_t kSetterText = 11;
constexpr std::int16_t kStateText = 13;
constexpr std::int16_t kDateText = 14;

constexpr std::size_t kOtherFields = 6;

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

// What the windows call the fields that they show.
std::vector<FieldCaption> DesignCaptions(const Session& session) {
    const auto design = [&](DesignText id) {
        return resources::GetDesignText(id, session.state.Language);
    };
    std::vector<FieldCaption> captions = {
        {"taskTime", session.LoadText(kDateText)}, {"taskTitle", session.LoadText(kTitleText)},
        {"fContent", design(DesignText::Content)}, {"tDoneMan", session.LoadText(kDoerText)},
        {"fUser", session.LoadText(kSetterText)},  {"fType", design(DesignText::Kind)},
        {"tDone", session.LoadText(kStateText)},   {"fWay", design(DesignText::ContactWay)},
        {"fGuest", design(DesignText::Contact)},
    };
    for (std::size_t i = 0; i < kOtherFields; i++) {
        captions.push_back({"fOther" + std::to_string(i),
                            design(DesignText::Remark) + ' ' + std::to_string(i + 1)});
    }
    return captions;
}

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

std::string CaptionOf(const FieldCaption& described, const std::vector<FieldCaption>& design) {
    if (!described.caption.empty()) return described.caption;
    const auto own = std::find_if(design.begin(), design.end(), Named(described.field));
    return own == design.end() ? described.field : own->caption;
}

}  // namespace

FieldKind KindOfField(std::string_view field) {
    const auto known = std::find_if(kKinds.begin(), kKinds.end(), Named(field));
    return known == kKinds.end() ? FieldKind::Text : known->kind;
}

std::vector<ListField> ReadListFields(Session& session) {
    const std::vector<FieldCaption> design = DesignCaptions(session);
    std::vector<FieldCaption> described = ReadFieldCaptions(session);
    if (described.empty()) described = design;
    std::vector<ListField> fields;
    for (const FieldCaption& entry : described) {
        const bool known = std::any_of(fields.begin(), fields.end(), Named(entry.field));
        if (known || !IsIdentifier(entry.field)) continue;
        fields.push_back({entry.field, CaptionOf(entry, design), KindOfField(entry.field)});
    }
    return fields;
}

}  // namespace zv::reports

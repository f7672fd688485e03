#include "reports/item_names.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <variant>

#include "base/text.h"
#include "resources/design_texts.h"
#include "resources/text_ids.h"

namespace zv::reports {
namespace {

using resources::DesignText;

constexpr std::string_view kOtherField = "fOther";

struct Name {
    std::string_view field;
    std::variant<std::int16_t, DesignText> text;  ///< of the catalogue, or of the design
};
constexpr auto kNames = std::to_array<Name>({{"taskTime", std::int16_t{14}},
                                             {"taskTitle", std::int16_t{7}},
                                             {"fContent", DesignText::Content},
                                             {"tDoneMan", std::int16_t{10}},
                                             {"fUser", std::int16_t{11}},
                                             {"fType", DesignText::Kind},
                                             {"tDone", std::int16_t{13}},
                                             {"fWay", DesignText::ContactWay},
                                             {"fGuest", DesignText::Contact}});

std::string Design(const Session& session, DesignText id) {
    return resources::GetDesignText(id, session.state.Language);
}

std::string OtherField(int number) {
    return std::string(kOtherField) + std::to_string(number);
}

}  // namespace

std::string DesignCaption(const Session& session, std::string_view field) {
    const auto named = std::find_if(kNames.begin(), kNames.end(), [&](const Name& name) {
        return text::EqualsIgnoreCase(name.field, field);
    });
    if (named != kNames.end()) {
        const auto* id = std::get_if<std::int16_t>(&named->text);
        return id ? session.LoadText(*id) : Design(session, std::get<DesignText>(named->text));
    }
    for (int number = 0; number < kOtherFields; number++) {
        if (text::EqualsIgnoreCase(OtherField(number), field)) {
            return Design(session, DesignText::Remark) + ' ' + std::to_string(number + 1);
        }
    }
    return {};
}

std::vector<std::string> CaptionedFields() {
    std::vector<std::string> fields;
    for (const Name& name : kNames) fields.emplace_back(name.field);
    for (int number = 0; number < kOtherFields; number++) fields.push_back(OtherField(number));
    return fields;
}

std::vector<std::string> KindNames(const Session& session) {
    return {session.LoadText(text_id::kTask), Design(session, DesignText::KindGuest),
            Design(session, DesignText::KindDiary)};
}

std::vector<std::string> StateNames(const Session& session) {
    return {Design(session, DesignText::StateNotDone), Design(session, DesignText::StateDone),
            Design(session, DesignText::StateInHand)};
}

}  // namespace zv::reports

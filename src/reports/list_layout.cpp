#include "reports/list_layout.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "resources/settings.h"

namespace zv::reports {
namespace {

constexpr std::string_view kLayoutKey = "PrintColumns";

void Take(std::vector<items::ListField>& chosen, std::string_view name,
          const std::vector<items::ListField>& offered) {
    const auto named = [name](const items::ListField& field) {
        return text::EqualsIgnoreCase(field.field, name);
    };
    const auto found = std::find_if(offered.begin(), offered.end(), named);
    if (found != offered.end() && std::none_of(chosen.begin(), chosen.end(), named)) {
        chosen.push_back(*found);
    }
}

}  // namespace

std::vector<items::ListField> FieldsOfLayout(std::string_view layout,
                                             const std::vector<items::ListField>& offered) {
    std::vector<items::ListField> chosen;
    while (!layout.empty()) {
        const auto comma = std::min(layout.find(','), layout.size());
        Take(chosen, layout.substr(0, comma), offered);
        layout.remove_prefix(std::min(comma + 1, layout.size()));
    }
    if (chosen.empty()) {
        // As many as a page in landscape holds without crowding.
        for (const items::Field* field : items::ListedFields()) {
            if (field->usual) Take(chosen, field->column, offered);
        }
    }
    return chosen.empty() ? offered : chosen;
}

std::string KeptLayout(const Session& session) {
    return session.GetSetting(resources::kTaskSection, kLayoutKey, "");
}

void KeepLayout(Session& session, const std::string& layout) {
    if (layout == KeptLayout(session)) return;
    session.SaveSetting(resources::kTaskSection, kLayoutKey, layout);
}

std::vector<ListColumn> ChosenColumns(Session& session) {
    std::vector<ListColumn> columns;
    for (items::ListField& field : FieldsOfLayout(
             KeptLayout(session),
             items::ListFields(suite::ReadFieldCaptions(session.database, session.state.Language),
                               session.state.Language))) {
        columns.push_back({std::move(field.field), std::move(field.caption)});
    }
    return columns;
}

}  // namespace zv::reports

#include "windows/main/acts/conflict_question.h"

#include <algorithm>

#include "cards/card_store.h"
#include "items/names.h"
#include "resources/text_ids.h"

namespace zv::windows {
namespace {

using items::FieldKind;
using items::ItemRow;
namespace field = items::field;

bool IsVisit(const ItemRow& row) {
    return row[field::kKind].ToInt32() == Number(items::ItemKind::Guest);
}

bool EndsTheAlert(std::size_t position) {
    return position == field::kAlertFrom || position == field::kAlertUntil;
}

}  // namespace

std::optional<store::RowMerge::Version> ConflictQuestion::Ask(
    const std::vector<std::size_t>& fields) const {
    std::vector<ConflictLine> lines;
    for (const std::size_t position : fields) {
        ConflictLine line{Caption(position), Shown(position, stored_), Shown(position, own_)};
        // The ends of the alert window mostly say what the date says.
        const bool said = std::any_of(lines.begin(), lines.end(), [&line](const auto& other) {
            return line.stored == other.stored && line.own == other.own;
        });
        if (!said || !EndsTheAlert(position)) lines.push_back(std::move(line));
    }
    return AskForVersion(session_, lines);
}

std::string ConflictQuestion::Caption(std::size_t position) const {
    if (position == field::kNumber) {
        return IsVisit(stored_) || IsVisit(own_)
                   ? session_.LoadText(resources::DesignText::Company)
                   : session_.LoadText(text_id::kManage) + session_.LoadText(text_id::kEvent);
    }
    if (const forms::Label* label = labels_.Of(position)) return label->Caption();
    return session_.LoadText(text_id::kAlertRange);
}

std::string ConflictQuestion::Shown(std::size_t position, const ItemRow& row) const {
    const store::Value& value = row[position];
    const FieldKind kind = items::kFields[position].kind;
    if (kind == FieldKind::ItemKind || kind == FieldKind::State) {
        const std::int16_t language = session_.state.Language;
        const auto names =
            kind == FieldKind::ItemKind ? items::KindNames(language) : items::StateNames(language);
        const std::int32_t number = value.ToInt32();
        if (number >= 0 && number < static_cast<std::int32_t>(names.size())) {
            return names[static_cast<std::size_t>(number)];
        }
    }
    if (position == field::kNumber && IsVisit(row)) return CardText(value.ToInt32());
    return value.ToText();
}

std::string ConflictQuestion::CardText(std::int32_t card) const {
    std::string number = std::to_string(card);
    if (card < 1) return number;
    const std::string company = cards::CompanyOf(session_.database, card);
    return company.empty() ? number : company + " (" + number + ")";
}

}  // namespace zv::windows

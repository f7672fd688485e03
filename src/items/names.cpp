#include "items/names.h"

#include "resources/design_texts.h"
#include "resources/text_ids.h"
#include "resources/texts.h"

namespace zv::items {

using resources::DesignText;

std::vector<std::string> KindNames(std::int16_t language) {
    return {resources::LoadText(text_id::kTask, language),
            LoadText(DesignText::KindGuest, language), LoadText(DesignText::KindDiary, language)};
}

std::vector<std::string> StateNames(std::int16_t language) {
    return {LoadText(DesignText::StateNotDone, language), LoadText(DesignText::StateDone, language),
            LoadText(DesignText::StateInHand, language)};
}

std::string Describe(ItemKind kind, ItemState state, std::string_view day, std::int16_t language) {
    using resources::ItemText;
    std::string name = StateNames(language)[Position(state)];
    if (day.empty()) return name;
    // Only a task is due; a visit or an entry of the diary has a date.
    const ItemText sentence =
        kind == ItemKind::Task ? ItemText::StateAndDue : ItemText::StateAndDate;
    return resources::LoadText(sentence, language, name, day);
}

}  // namespace zv::items

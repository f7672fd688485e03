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

}  // namespace zv::items

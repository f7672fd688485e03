#include "items/names.h"

#include "resources/catalogue.h"
#include "resources/design_texts.h"
#include "resources/text_ids.h"

namespace zv::items {

using resources::DesignText;
using resources::GetDesignText;

std::vector<std::string> KindNames(std::int16_t language) {
    return {resources::LoadText(text_id::kTask, language),
            GetDesignText(DesignText::KindGuest, language),
            GetDesignText(DesignText::KindDiary, language)};
}

std::vector<std::string> StateNames(std::int16_t language) {
    return {GetDesignText(DesignText::StateNotDone, language),
            GetDesignText(DesignText::StateDone, language),
            GetDesignText(DesignText::StateInHand, language)};
}

}  // namespace zv::items

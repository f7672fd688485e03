#include "items/fields.h"

#include <algorithm>

#include "base/text.h"
#include "resources/texts.h"

namespace zv::items {
namespace {

template <class Takes, class Place>
std::vector<const Field*> Sorted(Takes&& takes, Place&& place) {
    std::vector<const Field*> fields;
    for (const Field& field : kFields) {
        if (takes(field)) fields.push_back(&field);
    }
    std::stable_sort(fields.begin(), fields.end(),
                     [&](const Field* a, const Field* b) { return place(*a) < place(*b); });
    return fields;
}

}  // namespace

std::string FieldCaption::Text(std::int16_t language) const {
    std::string text = catalogue != 0 ? resources::LoadText(catalogue, language)
                                      : resources::LoadText(design, language);
    if (number != 0) text += ' ' + std::to_string(number);
    return text;
}

const Field* FindField(std::string_view column) {
    const auto found = std::find_if(kFields.begin(), kFields.end(), [&](const Field& field) {
        return text::EqualsIgnoreCase(field.column, column);
    });
    return found == kFields.end() ? nullptr : &*found;
}

std::vector<const Field*> ListedFields() {
    return Sorted([](const Field& field) { return field.IsListed(); },
                  [](const Field& field) { return field.listed; });
}

std::vector<const Field*> PrintedFields() {
    return Sorted([](const Field& field) { return !field.heading.empty(); },
                  [](const Field& field) { return field.printed; });
}

int FreeFields() {
    return static_cast<int>(std::count_if(
        kFields.begin(), kFields.end(), [](const Field& field) { return field.box == kFreeBox; }));
}

}  // namespace zv::items

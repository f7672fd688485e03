// The fields of an item that lists and queries offer to the user.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "items/fields.h"
#include "suite/field_captions.h"

namespace zv::items {

struct ListField {
    std::string field;    ///< of tTaskList
    std::string caption;  ///< never empty
    FieldKind kind = FieldKind::Text;
};

/// The fields in the order and under the captions of rptListDetail. A field without a caption there
/// keeps that of the windows, or its own name; a name that is no plain identifier is left out. A
/// database that describes no field yields those that the windows show.
std::vector<ListField> ListFields(std::vector<suite::FieldCaption> described,
                                  std::int16_t language);

FieldKind KindOfField(std::string_view field);

}  // namespace zv::items

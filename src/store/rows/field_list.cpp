#include "store/rows/field_list.h"

#include "base/errors.h"
#include "base/text.h"

namespace zv::store::rows {

void FieldList::ThrowUnknown(int field) const {
    throw RuntimeError(ErrorNumber::DatabaseColumn, "no field number " + std::to_string(field),
                       errorSource_)
        .Of(ErrorKind::NoColumn);
}

const std::string& FieldList::Name(int field) const {
    Check(field);
    return fields_[static_cast<std::size_t>(field)].name;
}

int FieldList::Index(std::string_view name) const {
    for (std::size_t field = 0; field < fields_.size(); field++) {
        if (text::EqualsIgnoreCase(fields_[field].name, name)) return static_cast<int>(field);
    }
    throw RuntimeError(ErrorNumber::DatabaseColumn, "no such field: " + std::string(name),
                       errorSource_)
        .Of(ErrorKind::NoColumn);
}

}  // namespace zv::store::rows

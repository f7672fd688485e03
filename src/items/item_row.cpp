#include "items/item_row.h"

namespace zv::items {

ItemRow ReadItem(const store::Recordset& row) {
    return store::ReadRow(row, kColumns);
}

std::vector<std::size_t> MergeGroups() {
    std::vector<std::size_t> groups;
    // A field alone is a group of its own position, together they have that of their first one.
    for (std::size_t i = 0; i < kFields.size(); i++) {
        const FieldGroup group = kFields[i].group;
        std::size_t first = i;
        if (group == FieldGroup::Writer) {
            first = store::RowMerge::kAlwaysOwn;
        } else if (group != FieldGroup::Alone) {
            for (std::size_t earlier = i; earlier-- > 0;) {
                if (kFields[earlier].group == group) first = earlier;
            }
        }
        groups.push_back(first);
    }
    return groups;
}

}  // namespace zv::items

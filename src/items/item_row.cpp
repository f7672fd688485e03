#include "items/item_row.h"

namespace zv::items {
namespace {

constexpr store::ColumnKind StoredAs(FieldKind kind) {
    switch (kind) {
        case FieldKind::Text:
            return store::ColumnKind::Text;
        case FieldKind::Date:
            return store::ColumnKind::Date;
        default:
            return store::ColumnKind::Number;
    }
}

constexpr auto kItemColumns = [] {
    std::array<store::Column, kFields.size()> columns;
    for (std::size_t i = 0; i < kFields.size(); i++) {
        columns[i] = {kFields[i].column, StoredAs(kFields[i].kind)};
    }
    return columns;
}();

}  // namespace

ItemRow ReadItem(const store::Recordset& row) {
    return store::ReadRow(row, kColumns);
}

const changes::Table& ItemTable() {
    static constexpr changes::Table kTable{
        .name = "tTaskList",
        .columns = kItemColumns,
        .title = kColumns[field::kTitle],
        .select = "select * from tTaskList where fID=",
        .erase = "Delete from tTaskList where fID =",
        .numberedBy = "fID",
    };
    return kTable;
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

#include "mainwindow/item_record.h"

#include <algorithm>
#include <utility>

namespace zv::mainwindow {

std::size_t ItemFieldIndex(std::string_view name) {
    return static_cast<std::size_t>(std::find(kItemFields.begin(), kItemFields.end(), name) -
                                    kItemFields.begin());
}

ItemRecord ReadItem(const store::Recordset& row) {
    // In the order of the columns: some providers give a long text only to who reads it in turn.
    std::array<std::pair<int, std::size_t>, kItemFields.size()> columns;
    for (std::size_t i = 0; i < columns.size(); i++) {
        columns[i] = {row.FieldIndex(kItemFields[i]), i};
    }
    std::sort(columns.begin(), columns.end());
    ItemRecord record;
    for (const auto& [column, field] : columns) record[field] = row.Field(column);
    return record;
}

std::vector<std::size_t> FindConflicts(const ItemRecord& asRead, const ItemRecord& now,
                                       const ItemEntry& entry) {
    std::vector<std::size_t> conflicts;
    for (std::size_t i = 0; i < kItemFields.size(); i++) {
        // Values as stored, so that a change that no control shows is noticed, too.
        if (now[i] == asRead[i]) continue;
        if (entry[i] && entry[i]->ToText() != now[i].ToText()) conflicts.push_back(i);
    }
    return conflicts;
}

}  // namespace zv::mainwindow

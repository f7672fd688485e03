#include "mainwindow/item_record.h"

#include <algorithm>

namespace zv::mainwindow {

std::size_t ItemFieldIndex(std::string_view name) {
    return static_cast<std::size_t>(std::find(kItemFields.begin(), kItemFields.end(), name) -
                                    kItemFields.begin());
}

ItemRecord ReadItem(const store::Recordset& row) {
    ItemRecord record;
    for (std::size_t i = 0; i < kItemFields.size(); i++) record[i] = row.Field(kItemFields[i]);
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

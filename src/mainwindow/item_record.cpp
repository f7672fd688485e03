#include "mainwindow/item_record.h"

#include <algorithm>

namespace zv::mainwindow {

std::size_t ItemFieldIndex(std::string_view name) {
    return static_cast<std::size_t>(std::find(kItemFields.begin(), kItemFields.end(), name) -
                                    kItemFields.begin());
}

std::vector<std::size_t> ItemGroups() {
    std::vector<std::size_t> groups;
    // A field alone is a group of its own position, together they have that of their first one.
    for (std::size_t i = 0; i < kItemFields.size(); i++) groups.push_back(i);
    const auto join = [&groups](std::string_view field, std::string_view first) {
        groups[ItemFieldIndex(field)] = ItemFieldIndex(first);
    };
    join("TaskID", "fType");
    join("fGuest", "fType");
    join("tDuring1", "taskTime");
    join("tDuring2", "taskTime");
    join("tDone", "tDoneMan");
    groups[ItemFieldIndex("fUser")] = store::RowMerge::kAlwaysOwn;
    return groups;
}

store::RowValues ReadItem(const store::Recordset& row) {
    return store::ReadRow(row, kItemFields);
}

}  // namespace zv::mainwindow

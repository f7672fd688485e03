#include "plans/plan_items.h"

#include "items/comparisons.h"
#include "items/fields.h"
#include "items/item_row.h"

namespace zv::plans {

std::string OnlyItemsOfPlan(store::Database& database, std::string_view taskId) {
    const auto others =
        database.Open("select count(*) from tTaskList Where taskID =" + std::string(taskId) +
                      " And " + items::IsOfAnotherKind(items::ItemKind::Task));
    const bool any = others->Field(0).ToDouble() > 0;
    others->Close();
    if (!any) return {};
    const std::string kind(items::kColumns[items::field::kKind]);
    return " And (" + items::IsOfKind(items::ItemKind::Task) + " Or " + kind + " is Null)";
}

std::vector<changes::RowChange> ItemsThatGo(store::Database& database, std::string_view condition) {
    const changes::Table& table = items::ItemTable();
    const auto rows = database.Open("select * from tTaskList where " + std::string(condition));
    std::vector<changes::RowChange> taken;
    for (; !rows->Eof(); rows->MoveNext()) {
        changes::RowChange change{.table = &table};
        change.before = changes::Known(items::ReadItem(*rows));
        change.row = rows->Field(table.numberedBy).ToInt32();
        taken.push_back(std::move(change));
    }
    rows->Close();
    return taken;
}

}  // namespace zv::plans

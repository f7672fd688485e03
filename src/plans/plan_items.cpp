#include "plans/plan_items.h"

#include "items/comparisons.h"
#include "items/fields.h"

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

}  // namespace zv::plans

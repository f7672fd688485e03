#include "scheduling/plan_items.h"

namespace zv::scheduling {

std::string OnlyItemsOfPlan(Session& session, std::string_view taskId) {
    const auto others = session.database.Open(
        "select count(*) from tTaskList Where taskID =" + std::string(taskId) + " And fType<>0");
    const bool any = others->Field(0).ToDouble() > 0;
    others->Close();
    return any ? " And (fType=0 Or fType is Null)" : "";
}

}  // namespace zv::scheduling
